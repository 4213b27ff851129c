#pragma once

#include "node/face/ZuFaceDebugNode.h"

class ZuPerson;

// Development aid: draws red line segments over the picture for every face
// of the latest record; a subclass says which segments a face gives. The
// segments are in landmark pixels (y up), like the landmarks themselves.
class ZuFaceDebugLineNode : public ZuFaceDebugNode {
public:
    // Two x, y pairs per segment.
    static constexpr int kMaxSegmentsPerFace = 16;

    explicit ZuFaceDebugLineNode(ZuAppMain* app);

    void zuinit() override;
    void update(float dt) override;

    // Segments drawn in the latest update, all faces together.
    int getDrawnSegmentCount() const { return drawnSegments; }

protected:
    // Writes up to kMaxSegmentsPerFace segments of one present face as
    // x0, y0, x1, y1 into out; returns how many.
    virtual int faceSegments(const ZuPerson* person, float* out) const = 0;

private:
    int drawnSegments = 0;
};
