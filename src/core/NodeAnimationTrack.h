#pragma once

#include "core/AnimationTrack.h"
#include "core/TransformKeyFrame.h"

class Bone;

// The key frames of one bone.
class NodeAnimationTrack : public AnimationTrack {
public:
    NodeAnimationTrack(Animation* parent, uint16_t handle, Bone* target)
        : AnimationTrack(parent, handle), target(target) {}

    TransformKeyFrame* createNodeKeyFrame(float time) {
        return static_cast<TransformKeyFrame*>(createKeyFrame(time));
    }
    TransformKeyFrame* getNodeKeyFrame(size_t i) const { return static_cast<TransformKeyFrame*>(getKeyFrame(i)); }
    // The pose at a time: k1's values, or a normalised blend towards k2.
    void getInterpolatedKeyFrame(const TimeIndex& timeIndex, TransformKeyFrame* out) const;
    // Moves the bone by the pose at the time, scaled by weight (and scale).
    void applyToNode(Bone* bone, const TimeIndex& timeIndex, float weight = 1.0f, float scale = 1.0f);

    Bone* getAssociatedNode() const { return target; }
    bool getUseShortestRotationPath() const { return useShortestRotationPath; }

protected:
    KeyFrame* createKeyFrameImpl(float time) override { return new TransformKeyFrame(this, time); }

private:
    Bone* target;
    bool useShortestRotationPath = true;
};
