#pragma once

#include "scene/ZuNode.h"

class Zu2DFaceMaskNode;
class ZuMaterial;
class ZuRenderMesh;

// The frame of the overlays that draw the camera's own face on the face
// triangles: an inner 2D face mask node of the back end computes the live
// points (it is never drawn itself), a subclass turns them into vertices and
// camera-picture coordinates, and one draw of program "3dFaceReal" puts the
// camera pixels there. Hidden until its package says it is loaded.
class Zu2DFaceOverlayNode : public ZuNode {
public:
    static constexpr int kMaxPoints = 400;

    explicit Zu2DFaceOverlayNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;
    bool procEvent(ZuEvent* event) override;

    bool isDrawing() const { return drawing; }
    Zu2DFaceMaskNode* getInner() const { return inner; }

protected:
    // Full (0) or simplified (1) mesh of the inner node.
    virtual int innerMeshType() const = 0;
    virtual int stream() const = 0;
    // Vertices (x, y, z, u, v) from the inner node's live points; the count
    // written, 0 for none. w, h: the frame; angle: the camera's turn.
    virtual int fillVertices(const Zu2DFaceMaskNode* inner, float w, float h, int angle, float* out) = 0;

private:
    Zu2DFaceMaskNode* inner = nullptr;
    ZuRenderMesh* mesh = nullptr;
    ZuMaterial* material = nullptr;
    float vertices[kMaxPoints * 5] = {};
    bool drawing = false;
};
