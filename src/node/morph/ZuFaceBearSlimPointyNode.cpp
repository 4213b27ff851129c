#include "node/morph/ZuFaceBearSlimPointyNode.h"

#include <algorithm>

ZuFaceBearSlimPointyNode::ZuFaceBearSlimPointyNode(ZuAppMain* app) : ZuFaceBearNode(app) { setType("ZuFaceBearSlimPointyNode"); }

void ZuFaceBearSlimPointyNode::zuinit() {
    ZuFaceBearNode::zuinit();
    const float x[8] = {6, 1, 2, -2, 2, 2, 0, 0};
    const float y[8] = {6, 1, 2, -2, 2, 2, 0, 0};
    std::copy(x, x + 8, deltaX);
    std::copy(y, y + 8, deltaY);
    ddScale = 0.5f;
}
