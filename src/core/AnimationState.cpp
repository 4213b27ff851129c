#include "core/AnimationState.h"

#include "core/AnimationStateSet.h"

#include <cmath>

AnimationState::AnimationState(const std::string& name, AnimationStateSet* parent, float timePos, float length,
                               float weight, bool enabled)
    : name(name), parent(parent), timePos(timePos), length(length), weight(weight), enabled(enabled) {}

bool AnimationState::setTimePosition(float time) {
    animated = std::fabs(time) >= 0.0001f;
    if (time == timePos) return false;
    if (loop) {
        if (length > 0.0f) {
            timePos = std::fmod(time, length);
            if (timePos < 0.0f) timePos += length;
        } else {
            timePos = 0.0f;
        }
    } else {
        timePos = time < 0.0f ? 0.0f : (time > length ? length : time);
    }
    return true;
}

void AnimationState::setEnabled(bool value) {
    enabled = value;
    if (parent) parent->_notifyAnimationStateEnabled(this, value);
}
