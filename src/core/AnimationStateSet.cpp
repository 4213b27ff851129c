#include "core/AnimationStateSet.h"

#include <algorithm>

std::recursive_mutex& AnimationStateSet::lock() {
    // Recursive: enabling a state calls back into its set under the lock.
    static std::recursive_mutex mutex;
    return mutex;
}

AnimationState* AnimationStateSet::createAnimationState(const std::string& name, float timePos, float length,
                                                        float weight, bool enabled) {
    std::lock_guard<std::recursive_mutex> guard(lock());
    std::unique_ptr<AnimationState>& slot = states[name];
    if (slot) enabledStates.erase(std::remove(enabledStates.begin(), enabledStates.end(), slot.get()),
                                  enabledStates.end());
    slot.reset(new AnimationState(name, this, timePos, length, weight, false));
    if (enabled) slot->setEnabled(true);
    return slot.get();
}

AnimationState* AnimationStateSet::getAnimationState(const std::string& name) const {
    std::lock_guard<std::recursive_mutex> guard(lock());
    auto it = states.find(name);
    return it == states.end() ? nullptr : it->second.get();
}

bool AnimationStateSet::hasAnimationState(const std::string& name) const {
    std::lock_guard<std::recursive_mutex> guard(lock());
    return states.count(name) != 0;
}

void AnimationStateSet::removeAnimationState(const std::string& name) {
    std::lock_guard<std::recursive_mutex> guard(lock());
    auto it = states.find(name);
    if (it == states.end()) return;
    enabledStates.erase(std::remove(enabledStates.begin(), enabledStates.end(), it->second.get()),
                        enabledStates.end());
    states.erase(it);
}

void AnimationStateSet::removeAllAnimationStates() {
    std::lock_guard<std::recursive_mutex> guard(lock());
    enabledStates.clear();
    states.clear();
}

std::vector<AnimationState*> AnimationStateSet::getEnableAnimationStateList() const {
    std::lock_guard<std::recursive_mutex> guard(lock());
    return enabledStates;
}

std::vector<std::string> AnimationStateSet::getAnimationStateNames() const {
    std::lock_guard<std::recursive_mutex> guard(lock());
    std::vector<std::string> names;
    for (const auto& entry : states) names.push_back(entry.first);
    return names;
}

void AnimationStateSet::_notifyAnimationStateEnabled(AnimationState* state, bool enabled) {
    std::lock_guard<std::recursive_mutex> guard(lock());
    enabledStates.erase(std::remove(enabledStates.begin(), enabledStates.end(), state), enabledStates.end());
    if (enabled) enabledStates.push_back(state);
}
