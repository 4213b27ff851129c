#pragma once

#include "render/command/ZuRenderCmdReadPixel.h"

// Draws its mesh, then reads the bound framebuffer into the swap (no odd
// partial row).
class ZuRenderCmdReadPixelToNodeDataSwap : public ZuRenderCmdReadPixel {
public:
    ZuRenderCmdReadPixelToNodeDataSwap(ZuAppMain* app, const char* sceneName, const char* nodeName, int format,
                                       int width, int height, ZuDataSwap* dataSwap)
        : ZuRenderCmdReadPixel(app, sceneName, format, width, height, dataSwap), nodeName(nodeName) {}
    void render() override;

private:
    const char* nodeName;  // borrowed, as the scene name
};
