#include "node/morph/ZuFaceFatNode.h"

#include <algorithm>

ZuFaceFatNode::ZuFaceFatNode(ZuAppMain* app) : ZuFaceMorphNode(app) { setType("ZuFaceFatNode"); }

void ZuFaceFatNode::zuinit() {
    ZuFaceMorphNode::zuinit();
    const float x[8] = {-1, -1, -2, -2, -2, -1, -1, -1};
    const float y[8] = {-1, -1, -2, -2, -2, -1, -1, -1};
    std::copy(x, x + 8, deltaX);
    std::copy(y, y + 8, deltaY);
    ddScale = 1.5f;  // wide with or without the bulge
}

void ZuFaceFatNode::setParameter(float value, float* dX, float* dY) {
    ZuFaceMorphNode::setParameter(value, dX, dY);
    strength = parameter * 10.0f;
}
