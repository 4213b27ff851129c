#include "core/AnimationTrack.h"

#include "core/Animation.h"

#include <algorithm>
#include <cmath>

KeyFrame* AnimationTrack::createKeyFrame(float time) {
    KeyFrame* frame = createKeyFrameImpl(time);
    auto at = std::upper_bound(frames.begin(), frames.end(), time,
                               [](float t, const std::unique_ptr<KeyFrame>& k) { return t < k->getTime(); });
    frames.emplace(at, frame);
    if (parent) parent->_keyFrameListChanged();
    return frame;
}

void AnimationTrack::removeAllKeyFrames() {
    frames.clear();
    if (parent) parent->_keyFrameListChanged();
}

void AnimationTrack::_collectKeyFrameTimes(std::vector<float>& times) const {
    for (const auto& frame : frames) {
        float t = frame->getTime();
        auto it = std::lower_bound(times.begin(), times.end(), t);
        if (it == times.end() || *it != t) times.insert(it, t);
    }
}

void AnimationTrack::_buildKeyFrameIndexMap(const std::vector<float>& times) {
    keyFrameIndexMap.assign(times.size() + 1, 0);
    size_t i = 0, j = 0;
    while (j <= times.size()) {
        keyFrameIndexMap[j] = static_cast<uint32_t>(i);
        while (i < frames.size() && j < times.size() && frames[i]->getTime() <= times[j]) ++i;
        ++j;
    }
}

float AnimationTrack::getKeyFramesAtTime(const TimeIndex& timeIndex, KeyFrame** k1, KeyFrame** k2,
                                         uint16_t* firstKeyIndex) const {
    *k1 = *k2 = nullptr;
    if (frames.empty()) return 0.0f;
    float time = timeIndex.getTimePos();
    float length = parent ? parent->getLength() : 0.0f;
    size_t position;
    if (timeIndex.hasKeyIndex() && timeIndex.getKeyIndex() < keyFrameIndexMap.size()) {
        position = keyFrameIndexMap[timeIndex.getKeyIndex()];
    } else {
        if (length > 0.0f && time > length) time = std::fmod(time, length);
        auto it = std::lower_bound(frames.begin(), frames.end(), time,
                                   [](const std::unique_ptr<KeyFrame>& k, float t) { return k->getTime() < t; });
        position = static_cast<size_t>(it - frames.begin());
    }
    float t1, t2;
    if (position >= frames.size()) {
        // Past the last frame: towards the first one, across the end, the
        // first frame's time counted from the length. Frames at 0 and 1 of a
        // length-2 animation give a factor of 0.5 at 1.5: (1.5 - 1) / (2 - 1).
        *k2 = frames.front().get();
        t2 = length + (*k2)->getTime();
        position = frames.size() - 1;
    } else {
        *k2 = frames[position].get();
        t2 = (*k2)->getTime();
        if (position > 0 && time < t2) --position;
    }
    if (firstKeyIndex) *firstKeyIndex = static_cast<uint16_t>(position);
    *k1 = frames[position].get();
    t1 = (*k1)->getTime();
    return t1 == t2 ? 0.0f : (time - t1) / (t2 - t1);
}
