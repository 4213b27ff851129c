#include "render/command/ZuRenderCmdReadPixelPicupData.h"

#include "data/ZuDataSwap.h"

#include <GLES2/gl2.h>
#include <cmath>
#include <cstring>

ZuRenderCmdReadPixelPicupData::ZuRenderCmdReadPixelPicupData(ZuDataSwap* pixelSwap, ZuDataSwap* pointSwap)
    : pixelSwap(pixelSwap), pointSwap(pointSwap) {
    if (pixelSwap) pixelSwap->retain();
    if (pointSwap) pointSwap->retain();
}

ZuRenderCmdReadPixelPicupData::~ZuRenderCmdReadPixelPicupData() {
    qzSafeRelease(pixelSwap);
    qzSafeRelease(pointSwap);
}

void ZuRenderCmdReadPixelPicupData::render() {
    // Both buffers must hold all twelve entries; a short one skips the reads.
    bool sized = pixelSwap && pointSwap && pixelSwap->getData() && pointSwap->getData() &&
                 pixelSwap->getSize() >= kPoints * 4 &&
                 pointSwap->getSize() >= kPoints * 2 * static_cast<int>(sizeof(float));
    if (sized) {
        glPixelStorei(GL_PACK_ALIGNMENT, 4);
        for (int i = 0; i < kPoints; i++) {
            float point[2];
            memcpy(point, pointSwap->getData() + i * 2 * sizeof(float), sizeof point);
            // Points no int can hold are skipped (their cast would be undefined).
            if (!(std::fabs(point[0]) < 1e9f) || !(std::fabs(point[1]) < 1e9f)) continue;
            glReadPixels(static_cast<int>(point[0]), static_cast<int>(point[1]), 1, 1, GL_RGBA, GL_UNSIGNED_BYTE,
                         pixelSwap->getData() + 4 * i);
        }
    }
    ZuRenderCmdNor::render();
}
