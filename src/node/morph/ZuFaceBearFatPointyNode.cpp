#include "node/morph/ZuFaceBearFatPointyNode.h"

#include <algorithm>

ZuFaceBearFatPointyNode::ZuFaceBearFatPointyNode(ZuAppMain* app) : ZuFaceBearNode(app) { setType("ZuFaceBearFatPointyNode"); }

void ZuFaceBearFatPointyNode::zuinit() {
    ZuFaceBearNode::zuinit();
    const float x[8] = {3, 2, -2, -20, -10, -10, 0, 0};
    const float y[8] = {3, 2, -2, 2, 2, 10, 0, 0};
    std::copy(x, x + 8, deltaX);
    std::copy(y, y + 8, deltaY);
    ddScale = 0.5f;
}
