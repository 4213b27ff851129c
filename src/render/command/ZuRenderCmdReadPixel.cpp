#include "render/command/ZuRenderCmdReadPixel.h"

#include "data/ZuDataSwap.h"
#include "platform/ZuLog.h"
#include "render/OUTSTEAMTYPE.h"

#include <GLES2/gl2.h>

ZuRenderCmdReadPixel::ZuRenderCmdReadPixel(ZuAppMain* app, const char* sceneName, int format, int width, int height,
                                           ZuDataSwap* dataSwap)
    : app(app), sceneName(sceneName), format(format), width(width), height(height), dataSwap(dataSwap) {
    if (dataSwap) dataSwap->retain();
}

ZuRenderCmdReadPixel::~ZuRenderCmdReadPixel() { qzSafeRelease(dataSwap); }

int ZuRenderCmdReadPixel::readRows(int format, int height) {
    if (height <= 0) return 0;
    if (zuIsPackedRgbFormat(format)) return height;
    if (format == OST_NV12 || format == OST_NV21 || format == OST_YV12 || format == OST_I420)
        return zuYuvReadRows(height);
    return 0;
}

bool ZuRenderCmdReadPixel::readInto(int rows, bool partialRow) {
    if (rows <= 0 || width <= 0 || height <= 0) return false;
    long long done = static_cast<long long>(width) * rows * 4;
    long long rest = 0;
    if (partialRow && !zuIsPackedRgbFormat(format))
        rest = static_cast<long long>(static_cast<double>(width) * height * 1.5 - done);
    if (rest < 0) rest = 0;
    if (!dataSwap->getData() || done + rest > dataSwap->getSize()) {
        QZLOGW("read-back of %lld bytes refused: the output buffer holds %d", done + rest, dataSwap->getSize());
        return false;
    }
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, width, rows, GL_RGBA, GL_UNSIGNED_BYTE, dataSwap->getData());
    // The odd bytes of a frame whose packed size is not whole rows.
    if (rest >= 4) glReadPixels(0, rows, static_cast<int>(rest / 4), 1, GL_RGBA, GL_UNSIGNED_BYTE,
                                dataSwap->getData() + done);
    return true;
}

void ZuRenderCmdReadPixel::render() {
    if (!dataSwap) return;
    dataSwap->lockData();
    glFlush();
    if (readInto(readRows(format, height), true)) dataSwap->setWrite();
    dataSwap->unlockData();
}
