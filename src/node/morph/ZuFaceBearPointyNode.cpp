#include "node/morph/ZuFaceBearPointyNode.h"

#include <algorithm>

ZuFaceBearPointyNode::ZuFaceBearPointyNode(ZuAppMain* app) : ZuFaceBearNode(app) { setType("ZuFaceBearPointyNode"); }

void ZuFaceBearPointyNode::zuinit() {
    ZuFaceBearNode::zuinit();
    const float x[8] = {3, 2, 1, -5, -5, -5, 0, 0};
    const float y[8] = {3, 2, 1, 2, 3, 4, 2, 0};
    std::copy(x, x + 8, deltaX);
    std::copy(y, y + 8, deltaY);
    ddScale = 0.5f;
}
