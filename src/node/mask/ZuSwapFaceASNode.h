#pragma once

#include "node/mask/ZuSwapFaceNode.h"

// The face swap on the AS tracker's 101 landmarks.
class ZuSwapFaceASNode : public ZuSwapFaceNode {
public:
    explicit ZuSwapFaceASNode(ZuAppMain* app) : ZuSwapFaceNode(app) { setType("ZuSwapFaceASNode"); }

protected:
    int landmarkCount() const override { return 101; }
    const char* meshName() const override { return "facemesh_as"; }
    const char* faceName() const override { return "standerface_as"; }
    void extendPoints(float* points, int& count) const override;
};
