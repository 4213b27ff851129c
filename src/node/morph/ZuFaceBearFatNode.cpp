#include "node/morph/ZuFaceBearFatNode.h"

#include <algorithm>

ZuFaceBearFatNode::ZuFaceBearFatNode(ZuAppMain* app) : ZuFaceBearNode(app) { setType("ZuFaceBearFatNode"); }

void ZuFaceBearFatNode::zuinit() {
    ZuFaceBearNode::zuinit();
    const float x[8] = {-1, -2, -2, -5, -5, -10, -10, 0};
    const float y[8] = {-1, -1, -1, -3, -3, -6, 0, 0};
    std::copy(x, x + 8, deltaX);
    std::copy(y, y + 8, deltaY);
    ddScale = 0.5f;
}
