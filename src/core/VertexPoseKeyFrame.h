#pragma once

#include "core/KeyFrame.h"

#include <cstdint>
#include <vector>

// Which poses blend in at one moment, and how strongly.
class VertexPoseKeyFrame : public KeyFrame {
public:
    struct PoseRef {
        uint16_t poseIndex;
        float influence;
    };
    VertexPoseKeyFrame(const AnimationTrack* parent, float time) : KeyFrame(parent, time) {}
    void addPoseReference(uint16_t poseIndex, float influence) { refs.push_back({poseIndex, influence}); }
    const std::vector<PoseRef>& getPoseReferences() const { return refs; }

private:
    std::vector<PoseRef> refs;
};
