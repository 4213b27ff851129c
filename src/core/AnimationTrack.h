#pragma once

#include "core/KeyFrame.h"
#include "core/TimeIndex.h"

#include <cstdint>
#include <memory>
#include <vector>

class Animation;

// The key frames of one target, ordered by time (equal times keep their
// creation order), and the map from the animation's global key times to
// this track's frames.
class AnimationTrack {
public:
    AnimationTrack(Animation* parent, uint16_t handle) : parent(parent), handle(handle) {}
    virtual ~AnimationTrack() = default;

    KeyFrame* createKeyFrame(float time);
    virtual void removeAllKeyFrames();
    // k1, k2 around the time and the factor between them. A time past the
    // last frame blends from the last frame back towards the first one.
    virtual float getKeyFramesAtTime(const TimeIndex& timeIndex, KeyFrame** k1, KeyFrame** k2,
                                     uint16_t* firstKeyIndex = nullptr) const;

    size_t getNumKeyFrames() const { return frames.size(); }
    KeyFrame* getKeyFrame(size_t i) const { return i < frames.size() ? frames[i].get() : nullptr; }
    uint16_t getHandle() const { return handle; }
    Animation* getParent() const { return parent; }

    void _collectKeyFrameTimes(std::vector<float>& times) const;
    void _buildKeyFrameIndexMap(const std::vector<float>& times);

protected:
    virtual KeyFrame* createKeyFrameImpl(float time) = 0;

    std::vector<std::unique_ptr<KeyFrame>> frames;
    Animation* parent;
    uint16_t handle;
    std::vector<uint32_t> keyFrameIndexMap;
};
