#pragma once

#include "scene/ZuNode.h"

class ZuMaterial;
class ZuPerson;
class ZuRenderMesh;

// Development aid: draws red line segments over the picture for every face
// of the latest record; a subclass says which segments a face gives. The
// segments are in landmark pixels (y up), like the landmarks themselves.
class ZuFaceDebugLineNode : public ZuNode {
public:
    // Two x, y pairs per segment.
    static constexpr int kMaxSegmentsPerFace = 16;

    explicit ZuFaceDebugLineNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // Segments drawn in the latest update, all faces together.
    int getDrawnSegmentCount() const { return drawnSegments; }

protected:
    // Writes up to kMaxSegmentsPerFace segments of one present face as
    // x0, y0, x1, y1 into out; returns how many.
    virtual int faceSegments(const ZuPerson* person, float* out) const = 0;
    // Label of the recorded draw command.
    virtual const char* commandLabel() const = 0;

private:
    // Width and height of the space the landmarks are in.
    bool landmarkFrame(float* width, float* height) const;

    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    int drawnSegments = 0;
};
