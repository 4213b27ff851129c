#pragma once

#include "node/face/ZuFaceDebugNode.h"

// Development aid: draws the landmarks of every face in the scene's latest
// record as small red squares over the picture, so a tracker hook-up can
// be checked by eye.
class ZuFacePointNode : public ZuFaceDebugNode {
public:
    static constexpr float kDefaultPointSize = 4.0f;

    explicit ZuFacePointNode(ZuAppMain* app);

    void zuinit() override;
    void update(float dt) override;

    // Side of each square in framebuffer pixels.
    void setPointSize(float pixels);
    // Points drawn in the latest update, all faces together.
    int getDrawnPointCount() const { return drawnPoints; }

protected:
    const char* commandLabel() const override { return "facept"; }

private:
    // Fills positions with the landmarks of the persons that have a face in
    // the latest record; returns the point count.
    int collectPoints(float* positions, int capacity) const;

    // Every landmark of four faces, as x, y pairs: filled each update without
    // allocating.
    static constexpr int kCapacity = 4 * 400;
    float positions[kCapacity * 2] = {};
    float pointSize = kDefaultPointSize;
    int drawnPoints = 0;
};
