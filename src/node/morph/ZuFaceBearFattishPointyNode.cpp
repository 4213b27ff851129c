#include "node/morph/ZuFaceBearFattishPointyNode.h"

#include <algorithm>

ZuFaceBearFattishPointyNode::ZuFaceBearFattishPointyNode(ZuAppMain* app) : ZuFaceBearNode(app) { setType("ZuFaceBearFattishPointyNode"); }

void ZuFaceBearFattishPointyNode::zuinit() {
    ZuFaceBearNode::zuinit();
    const float x[8] = {3, 2, -2, -1, -1, -3, -6, 0};
    const float y[8] = {3, 2, -2, -1, -1, -3, 0, 0};
    std::copy(x, x + 8, deltaX);
    std::copy(y, y + 8, deltaY);
    ddScale = 0.5f;
}
