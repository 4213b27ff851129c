#pragma once

#include "node/face/ZuFaceDebugLineNode.h"

// Development aid: outlines the detection rectangle of every face in the
// latest record, to check the tracker's box against the picture.
class ZuFaceRectNote : public ZuFaceDebugLineNode {
public:
    explicit ZuFaceRectNote(ZuAppMain* app);

protected:
    int faceSegments(const ZuPerson* person, float* out) const override;
    const char* commandLabel() const override { return "facerect"; }
};
