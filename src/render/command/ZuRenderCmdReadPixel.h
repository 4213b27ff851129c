#pragma once

#include "render/command/ZuRenderCmdNor.h"

class ZuAppMain;
class ZuDataSwap;

// Reads the bound framebuffer into a data swap, synchronously. RGBA and BGRA
// read width x height pixels; the YUV formats read the packed rows (0.375 of
// the height) and then the odd bytes of one more row, so that exactly 1.5
// bytes per pixel arrive. Its mesh is not drawn.
class ZuRenderCmdReadPixel : public ZuRenderCmdNor {
public:
    ZuRenderCmdReadPixel(ZuAppMain* app, const char* sceneName, int format, int width, int height,
                         ZuDataSwap* dataSwap);
    ~ZuRenderCmdReadPixel() override;
    void render() override;

    // Rows to read for a format: the height for RGBA and BGRA, the packed
    // rows for YUV, 0 for anything else.
    static int readRows(int format, int height);

protected:
    // glReadPixels of rows x width into the swap's buffer, refused when the
    // buffer is smaller; caller holds the swap's lock.
    bool readInto(int rows, bool partialRow);

    ZuAppMain* app;
    // Borrowed from the read object that made the command, like the label:
    // a read happens every frame and copies no text.
    const char* sceneName;
    int format;
    int width;
    int height;
    ZuDataSwap* dataSwap;
};
