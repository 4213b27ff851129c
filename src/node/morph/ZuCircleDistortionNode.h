#pragma once

#include "node/morph/ZuDistortionNode.h"

class ZuEnlargeEyeMaterial;

// A round lens on the bound landmark; its radius is a factor of the
// distance between the eyes, so it keeps its share of the face.
class ZuCircleDistortionNode : public ZuDistortionNode {
public:
    explicit ZuCircleDistortionNode(ZuAppMain* app);

    // Factor of the eye distance; negative values count as 0 (no lens).
    void setradius(float value);
    float getradius() const { return radius; }
    ZuEnlargeEyeMaterial* getMaterial() const;

protected:
    ZuAotuMirror* makeMaterial() override;
    void placeLens(ZuPerson* person, ZuDetectBase* detector) override;

private:
    float radius = 1.0f;
};
