#pragma once

#include "node/morph/ZuDistortionNode.h"

class ZuEnlargeEllipseMaterial;

// An oval lens on the bound landmark, its long axis along the line through
// the eyes. The radii are factors of the eye's own width for a landmark of
// one eye, of the distance between the eyes elsewhere.
class ZuEllipseDistortionNode : public ZuDistortionNode {
public:
    explicit ZuEllipseDistortionNode(ZuAppMain* app);

    // Factors of the face size as above; negative values count as 0.
    void setradiusx(float value);
    void setradiusy(float value);
    float getradiusx() const { return radiusX; }
    float getradiusy() const { return radiusY; }
    ZuEnlargeEllipseMaterial* getMaterial() const;

protected:
    ZuAotuMirror* makeMaterial() override;
    void placeLens(ZuPerson* person, ZuDetectBase* detector) override;

private:
    float checkedRadius(float value, const char* what) const;
    float radiusX = 1.0f;
    float radiusY = 1.0f;
};
