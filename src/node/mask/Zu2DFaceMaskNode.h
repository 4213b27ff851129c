#pragma once

#include "scene/ZuNode.h"

#include <cstdint>

class ZuMaterial;
class ZuRenderMesh;

enum FACEMASK2DTYPE { FACEMASK2D_FULL = 0, FACEMASK2D_SIMPLIFY = 1 };

// A picture authored against a standard face, stretched over the live face
// of the node's person every frame. The standard face's points stay the
// texture coordinates; each tick the positions become the person's landmarks
// extended by the same synthetic points the standard face holds (forehead,
// lips, outline and, on the full mesh, the picture's four corners). One
// subclass per tracker back end names the files and the extension steps.
// Created hidden: the package's "all loaded" event shows it.
class Zu2DFaceMaskNode : public ZuNode {
public:
    static constexpr int kMaxPoints = 400;
    static constexpr int kMaxIndices = 1800;

    explicit Zu2DFaceMaskNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;
    bool procEvent(ZuEvent* event) override;

    // Loads the standard face and mesh of the type; without both (or when
    // they disagree with this back end) the node draws nothing.
    virtual void initMesh(FACEMASK2DTYPE type);
    // The tracker landmarks this back end's layout starts from.
    virtual int getFacePointNum() const { return 0; }

    void setMaterial(ZuMaterial* material);
    ZuMaterial* getMaterial() const { return material; }
    void setsceneName(const char* name);
    ZuRenderMesh* getMesh() const { return mesh; }
    // The live points of the last update, x, y pairs in frame pixels.
    const float* getFaceData() const { return livePoints; }
    int getPointCount() const { return pointCount; }
    // Points the last update produced (0 when it had no face).
    int getLiveCount() const { return liveCount; }
    int getTriangleCount() const { return triangleCount; }
    const uint16_t* getIndices() const { return indices; }
    FACEMASK2DTYPE getMeshType() const { return meshType; }
    // Design point i of the standard face, or null.
    const float* getStandardPoint(int i) const { return i >= 0 && i < pointCount ? &standardPoints[i * 2] : nullptr; }

protected:
    // File names of this back end, by type.
    virtual const char* meshName(FACEMASK2DTYPE type) const = 0;
    virtual const char* faceName(FACEMASK2DTYPE type) const = 0;
    // The synthetic points, appended at count: forehead, then for the full
    // mesh lips and outline.
    virtual void extendPoints(float* points, int& count, bool full) const = 0;

    // Landmarks of the person, extended, into the live points and the mesh.
    void _updatemesh();
    void _updatesimplifymesh();

private:
    void fillLivePoints(bool full);

    qz::string sceneName;
    ZuRenderMesh* mesh = nullptr;
    ZuMaterial* material = nullptr;
    FACEMASK2DTYPE meshType = FACEMASK2D_FULL;
    float livePoints[kMaxPoints * 2] = {};
    float standardPoints[kMaxPoints * 2] = {};
    uint16_t indices[kMaxIndices] = {};
    int pointCount = 0, triangleCount = 0, liveCount = 0;
    float designWidth = 0.0f, designHeight = 0.0f;
    float vertices[kMaxPoints * 4] = {};
    bool warnedCount = false;
};
