#pragma once

#include "scene/ZuNode.h"

class ZuMaterial;
class ZuRenderMesh;

// Outlines in red the rectangle the last bounding-box event of its scene
// reported (design units), or a fixed starting rectangle until one comes.
class ZuDrawBoundingBoxNode : public ZuNode {
public:
    explicit ZuDrawBoundingBoxNode(ZuAppMain* app);
    ~ZuDrawBoundingBoxNode() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;
    bool procEvent(ZuEvent* event) override;

    // The four corners as drawn: (x, y) pairs, clockwise from top left.
    const float* getCorners() const { return corners; }

private:
    void setCorners(float left, float top, float right, float bottom);
    void releaseOwned();

    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    float corners[8] = {};
};
