#pragma once

#include "node/morph/ZuSmallFaceWarpNode.h"

// Round, pig-like face: the upper pairs follow the node (fat pushes them out), the jaw pair is always pulled in and the vertical pairs always pull towards the mouth.
class ZuPigFaceNode : public ZuSmallFaceWarpNode {
public:
    explicit ZuPigFaceNode(ZuAppMain* app) : ZuSmallFaceWarpNode(app) { setType("ZuPigFaceNode"); }

protected:
    ZuSmallFaceWarpMaterial* makeMaterial() override;
    Recipe recipe(int detectType) const override;
    void fillDeltas(float d, float b, float* side, float* vertical) const override;
};
