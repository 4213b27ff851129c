#pragma once

#include <cstdint>

// A time in an animation, with the index of the first global key time at or
// after it when the animation has worked it out.
class TimeIndex {
public:
    static constexpr uint32_t kNoKeyIndex = 0xFFFFFFFFu;
    explicit TimeIndex(float time, uint32_t keyIndex = kNoKeyIndex) : timePos(time), keyIndex(keyIndex) {}
    bool hasKeyIndex() const { return keyIndex != kNoKeyIndex; }
    float getTimePos() const { return timePos; }
    uint32_t getKeyIndex() const { return keyIndex; }

private:
    float timePos;
    uint32_t keyIndex;
};
