#include "render/command/ZuRenderCmdReadPixelOutCache.h"

#include "data/ZuDataSwap.h"
#include "data/ZuDataSwapCache.h"
#include "platform/ZuLog.h"
#include "render/OUTSTEAMTYPE.h"
#include "render/command/ZuRenderCmdReadPixel.h"

#include <GLES2/gl2.h>
#include <climits>

void ZuRenderCmdReadPixelOutCache::render() {
    if (!cache) return;
    ZuRenderCmdNor::render();
    ZuDataSwap* slot = cache->getWriteData();
    if (!slot) return;
    int rows = ZuRenderCmdReadPixel::readRows(format, height);
    if (rows <= 0 || width <= 0) return;
    double perPixel = zuIsPackedRgbFormat(format) ? 4.0 : 1.5;
    long long frameBytes = static_cast<long long>(static_cast<double>(width) * height * perPixel);
    // Very short YUV frames still read one whole packed row, a little more
    // than 1.5 bytes a pixel: the slot grows to take it.
    long long readBytes = static_cast<long long>(width) * rows * 4;
    long long slotBytes = frameBytes > readBytes ? frameBytes : readBytes;
    if (slotBytes > INT_MAX) {
        QZLOGW("cached read of %d x %d refused: too large", width, height);
        return;
    }
    slot->aplly(static_cast<int>(slotBytes));
    slot->lockData();
    if (slot->getData()) {
        glPixelStorei(GL_PACK_ALIGNMENT, 4);
        glReadPixels(0, 0, width, rows, GL_RGBA, GL_UNSIGNED_BYTE, slot->getData());
    }
    slot->unlockData();
    cache->incWrite();
}
