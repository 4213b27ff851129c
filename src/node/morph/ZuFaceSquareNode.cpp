#include "node/morph/ZuFaceSquareNode.h"

#include <algorithm>

ZuFaceSquareNode::ZuFaceSquareNode(ZuAppMain* app) : ZuFaceMorphNode(app) { setType("ZuFaceSquareNode"); }

void ZuFaceSquareNode::zuinit() {
    ZuFaceMorphNode::zuinit();
    const float x[8] = {-1, -1, -20, -2, -2, -1, 0, 0};
    const float y[8] = {-1, -1, -2, -2, -2, -1, 0, 0};
    std::copy(x, x + 8, deltaX);
    std::copy(y, y + 8, deltaY);
    ddScale = 0.5f;
    const float reach[8] = {2, 2, 4, 2, 2, 2, 2, 2};
    std::copy(reach, reach + 8, reachFactor);
}

void ZuFaceSquareNode::setParameter(float value, float* dX, float* dY) {
    ZuFaceMorphNode::setParameter(value, dX, dY);
    strength = parameter * 10.0f;
}
