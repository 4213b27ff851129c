#pragma once

#include "scene/ZuNode.h"

class ZuMaterial;
class ZuRenderMesh;

// Development aid: draws the landmarks of every face in the scene's latest
// record as small red squares over the picture, so a tracker hook-up can
// be checked by eye. Carries no state that other parts read.
class ZuFacePointNode : public ZuNode {
public:
    static constexpr float kDefaultPointSize = 4.0f;

    explicit ZuFacePointNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // Side of each square in framebuffer pixels.
    void setPointSize(float pixels);
    // Points drawn in the latest update, all faces together.
    int getDrawnPointCount() const { return drawnPoints; }

private:
    // Fills positions with the landmarks of the persons that have a face in
    // the latest record; returns the point count.
    int collectPoints(float* positions, int capacity) const;
    // Width and height of the space the landmarks are in: the frame after
    // the camera's turn, as the detectors convert them.
    bool landmarkFrame(float* width, float* height) const;

    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    float pointSize = kDefaultPointSize;
    int drawnPoints = 0;
};
