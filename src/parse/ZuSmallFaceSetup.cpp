#include "parse/ZuSmallFaceSetup.h"

#include "node/morph/ZuKejiSmallShortFaceNode.h"
#include "node/morph/ZuSmallFaceWarpNode.h"

bool ZuSmallFaceSetup::apply(ZuNode* node, float level, bool small, float bearValue) {
    auto* warp = dynamic_cast<ZuSmallFaceWarpNode*>(node);
    if (!warp) return false;
    warp->setSmallLevel(level);
    warp->setIsSmall(small);
    // Only the combined small-and-short warp reads the bear value.
    if (dynamic_cast<ZuKejiSmallShortFaceNode*>(node)) warp->setBearValue(bearValue);
    return true;
}
