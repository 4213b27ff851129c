#include "render/ZuRenderCmdReadPixelOutCache.h"

#include "data/ZuDataSwap.h"
#include "data/ZuDataSwapCache.h"
#include "render/OUTSTEAMTYPE.h"
#include "render/ZuRenderCmdReadPixel.h"

#include <GLES2/gl2.h>

void ZuRenderCmdReadPixelOutCache::render() {
    if (!cache) return;
    ZuRenderCmdNor::render();
    ZuDataSwap* slot = cache->getWriteData();
    if (!slot) return;
    int rows = ZuRenderCmdReadPixel::readRows(format, height);
    if (rows <= 0 || width <= 0) return;
    double perPixel = zuIsPackedRgbFormat(format) ? 4.0 : 1.5;
    int frameBytes = static_cast<int>(static_cast<double>(width) * height * perPixel);
    slot->aplly(frameBytes);
    slot->lockData();
    // The packed rows may reach a little past 1.5 bytes per pixel.
    long long bytes = static_cast<long long>(width) * rows * 4;
    if (slot->getData() && bytes <= slot->getSize()) {
        glPixelStorei(GL_PACK_ALIGNMENT, 4);
        glReadPixels(0, 0, width, rows, GL_RGBA, GL_UNSIGNED_BYTE, slot->getData());
    }
    slot->unlockData();
    cache->incWrite();
}
