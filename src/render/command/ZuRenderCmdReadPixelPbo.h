#pragma once

#include "render/command/ZuRenderCmdReadPixel.h"

class ZuPboObject;

// The asynchronous read of ES 3: this frame goes into one pixel buffer while
// the one written last frame is mapped and copied to the swap, so the render
// thread never waits for the GPU. What arrives is one frame old; the first
// frame delivers nothing.
class ZuRenderCmdReadPixelPbo : public ZuRenderCmdReadPixel {
public:
    ZuRenderCmdReadPixelPbo(ZuAppMain* app, const char* sceneName, int format, int width, int height,
                            ZuDataSwap* dataSwap, ZuPboObject* writePbo, ZuPboObject* readPbo)
        : ZuRenderCmdReadPixel(app, sceneName, format, width, height, dataSwap), writePbo(writePbo),
          readPbo(readPbo) {}
    void render() override;

private:
    ZuPboObject* writePbo;
    ZuPboObject* readPbo;
};
