#pragma once

#include "node/face/ZuFaceDebugLineNode.h"

// Development aid: draws the head axes the geometry tracker derived for every
// face in the latest record: the eye line from eye to eye and the head axis
// down the nose, so rotation and scale can be checked by eye.
class ZuFaceAxis : public ZuFaceDebugLineNode {
public:
    explicit ZuFaceAxis(ZuAppMain* app);

protected:
    int faceSegments(const ZuPerson* person, float* out) const override;
    const char* commandLabel() const override { return "faceaxis"; }
};
