#pragma once

#include "node/mask/ZuSwapFaceNode.h"

// The face swap on the ST tracker's 106 landmarks.
class ZuSwapFaceSTNode : public ZuSwapFaceNode {
public:
    explicit ZuSwapFaceSTNode(ZuAppMain* app) : ZuSwapFaceNode(app) { setType("ZuSwapFaceSTNode"); }

protected:
    int landmarkCount() const override { return 106; }
    const char* meshName() const override { return "facemesh_st"; }
    const char* faceName() const override { return "standerface_st"; }
    void extendPoints(float* points, int& count) const override;
};
