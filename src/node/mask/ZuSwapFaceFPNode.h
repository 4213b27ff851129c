#pragma once

#include "node/mask/ZuSwapFaceNode.h"

// The face swap on the FP tracker's 106 landmarks.
class ZuSwapFaceFPNode : public ZuSwapFaceNode {
public:
    explicit ZuSwapFaceFPNode(ZuAppMain* app) : ZuSwapFaceNode(app) { setType("ZuSwapFaceFPNode"); }

protected:
    int landmarkCount() const override { return 106; }
    const char* meshName() const override { return "facemesh_fp"; }
    const char* faceName() const override { return "standerface_fp"; }
    void extendPoints(float* points, int& count) const override;
};
