#pragma once

#include "render/command/ZuRenderCmdNor.h"

class ZuAppMain;
class ZuDataSwapCache;

// Draws, then reads the frame into the next free slot of a ring of swaps.
// A full ring drops the frame; moving the write position on may block until
// the reader frees a slot.
class ZuRenderCmdReadPixelOutCache : public ZuRenderCmdNor {
public:
    ZuRenderCmdReadPixelOutCache(ZuAppMain* app, ZuDataSwapCache* cache, int format, int width, int height)
        : app(app), cache(cache), format(format), width(width), height(height) {}
    void render() override;

private:
    ZuAppMain* app;
    ZuDataSwapCache* cache;
    int format, width, height;
};
