#pragma once

#include "scene/ZuNode.h"

#include <cstdint>

class ZuMaterialSwapFace;
class ZuRenderMesh;
class ZuRenderObject;

// Exchanges the faces of persons 1 and 2 in one camera picture: mesh A
// stands on person 1's points and samples the camera picture at person 2's,
// mesh B the reverse. A soft mask drawn on the standard face fades both out
// towards their border. Idle unless both persons are present; persons 3 and
// 4 take no part. Subclasses name the back end's files and point steps.
class ZuSwapFaceNode : public ZuNode {
public:
    static constexpr int kMaxPoints = 400;
    static constexpr int kMaxIndices = 1800;
    static constexpr const char* kMaskPath = "shader/swapface/swapface.png";

    explicit ZuSwapFaceNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // Loads the back end's standard face and mesh; after zuinit, before the
    // first update. Without them (or when they disagree with the back end)
    // nothing is drawn.
    virtual void initMesh();

    bool isSwapping() const { return swapping; }
    int getPointCount() const { return standardCount; }
    int getTriangleCount() const { return triangleCount; }

protected:
    virtual int landmarkCount() const { return 0; }
    virtual const char* meshName() const { return ""; }
    virtual const char* faceName() const { return ""; }
    // Forehead, lips and outline appended at count.
    virtual void extendPoints(float* points, int& count) const {}
    // Points of persons 1 and 2 into the meshes.
    bool _updatemesh();

private:
    bool fillPoints(int person, float* out);

    ZuRenderMesh* meshA = nullptr;
    ZuRenderMesh* meshB = nullptr;
    ZuMaterialSwapFace* materialA = nullptr;
    ZuMaterialSwapFace* materialB = nullptr;
    ZuRenderObject* objectA = nullptr;
    ZuRenderObject* objectB = nullptr;
    float pointsA[kMaxPoints * 2] = {};
    float pointsB[kMaxPoints * 2] = {};
    float standard[kMaxPoints * 2] = {};
    uint16_t indices[kMaxIndices] = {};
    float vertices[kMaxPoints * 6] = {};
    int standardCount = 0, triangleCount = 0;
    int standardWidth = 700, standardHeight = 1004;
    bool swapping = false;
};
