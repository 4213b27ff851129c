#include "basesys/ZuAppMainWrap.h"

#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/beauty/ZuFaceBuffingWhiteNode.h"
#include "scene/ZuNodeMgr.h"

#include <typeinfo>

void ZuAppMainWrap::setFaceBeautyType(int type) {
    ZuConfig* config = getGlobalMgr() ? getGlobalMgr()->getConfig() : nullptr;
    if (config) config->faceBeautyType = type;
}

void ZuAppMainWrap::setFaceBeautifyAdjust(float smooth, float white, float, float, const char* nodeName) {
    ZuNodeMgr* nodes = getGlobalMgr() ? getGlobalMgr()->getNodeMgr() : nullptr;
    ZuNode* node = nodes && nodeName ? nodes->getNode(nodeName) : nullptr;
    // Subclasses keep their own meaning for the two strengths.
    if (!node || typeid(*node) != typeid(ZuFaceBuffingWhiteNode)) return;
    auto* smoother = static_cast<ZuFaceBuffingWhiteNode*>(node);
    smoother->updateSmooth(smooth);
    smoother->updateWhite(white);
}
