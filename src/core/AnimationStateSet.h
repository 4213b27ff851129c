#pragma once

#include "core/AnimationState.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

// The animation states of one model by name, and the enabled ones in the
// order they were enabled. Models are built on the load thread and played on
// the tick thread, so every operation takes one lock shared by all sets.
class AnimationStateSet {
public:
    // A state of that name already there is replaced.
    AnimationState* createAnimationState(const std::string& name, float timePos, float length,
                                         float weight = 1.0f, bool enabled = false);
    AnimationState* getAnimationState(const std::string& name) const;
    bool hasAnimationState(const std::string& name) const;
    void removeAnimationState(const std::string& name);
    void removeAllAnimationStates();
    // A copy: the set may change while the caller walks it.
    std::vector<AnimationState*> getEnableAnimationStateList() const;
    std::vector<std::string> getAnimationStateNames() const;

    void _notifyAnimationStateEnabled(AnimationState* state, bool enabled);

private:
    static std::recursive_mutex& lock();

    std::map<std::string, std::unique_ptr<AnimationState>> states;
    std::vector<AnimationState*> enabledStates;
};
