#pragma once

#include "node/morph/ZuFaceMorphNode.h"

// The landmark-driven morph of the AS back end: a mesh of 128 vertices lies
// on the face (the landmarks, a few copies, and a ring outside the contour)
// and its rules move chosen vertices towards lines between others. The
// picture is copied over itself, then the face is drawn through the moved
// mesh with the texture coordinates of the unmoved one. The triangle table
// and the default rules (all at strength 0) come from "shader/mesh/"; the
// host sets strengths, or hands over rules of its own.
class ZuFaceNewMorphNode : public ZuFaceMorphNode {
public:
    static const int kVertices = 128;
    static const int kIndices = 663;

    explicit ZuFaceNewMorphNode(ZuAppMain* app);
    ~ZuFaceNewMorphNode() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // The moved vertices of this tick, (x, y) in -1..1, and where they
    // rest; false before the first face.
    const float* getMovedVertices() const { return moved; }
    const float* getTexcoords() const { return faceTexcoords; }
    bool isDrawn() const { return drawn; }
    bool hasTriangles() const { return trianglesLoaded; }

protected:
    void doRenderMeshInit() override;
    void doMorphInit() override;
    virtual void doNewMorph(ZuPerson* person, float width, float height, int slot);

private:
    bool loadTriangles();
    void loadDefaultRules();
    // The unmoved vertex table of the face in pixels.
    bool layVertices(ZuPerson* person, float pixels[kVertices][2]);

    ZuRenderObject* faceObject = nullptr;
    ZuRenderMeshDvid* faceMesh = nullptr;
    float moved[kVertices * 2] = {};
    float faceTexcoords[kVertices * 2] = {};
    uint16_t faceIndices[kIndices] = {};
    bool drawn = false;
    bool trianglesLoaded = false;
    bool started = false;
};
