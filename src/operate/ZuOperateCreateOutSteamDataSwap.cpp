#include "operate/ZuOperateCreateOutSteamDataSwap.h"

#include "data/ZuDataSwap.h"
#include "node/output/ZuDataTransNode.h"

void ZuOperateCreateOutSteamDataSwap::process(float) {
    ZuDataTransNode* node = createTransNode(nodeName.c_str(), width, height);
    if (!node) return;
    node->setintercept(intercept);
    // The host's buffer is exactly one frame, so a fetch copies no stale tail.
    double perPixel = zuIsPackedRgbFormat(format) ? 4.0 : 1.5;
    if (ZuDataSwap* swap = node->getOutDataSwap())
        swap->resize(static_cast<int>(node->getOutWidth() * node->getOutHeight() * perPixel));
}
