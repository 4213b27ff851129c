#include "render/command/ZuRenderCmdReadPixelToNodeDataSwap.h"

#include "data/ZuDataSwap.h"

#include <GLES2/gl2.h>

void ZuRenderCmdReadPixelToNodeDataSwap::render() {
    ZuRenderCmdNor::render();
    if (!dataSwap) return;
    glFlush();
    dataSwap->lockData();
    if (readInto(readRows(format, height), false)) dataSwap->setWrite();
    dataSwap->unlockData();
}
