#pragma once

#include <string>

class AnimationStateSet;

// The playing state of one animation for one model: where it stands, how
// strongly it counts, whether it plays and loops.
class AnimationState {
public:
    AnimationState(const std::string& name, AnimationStateSet* parent, float timePos, float length,
                   float weight = 1.0f, bool enabled = false);

    // False when the time is the present one. A looping state wraps into
    // 0 .. length, another one is clamped there.
    bool setTimePosition(float time);
    bool setAnimateTime(float time) { return setTimePosition(time); }
    float getTimePosition() const { return timePos; }
    float getLength() const { return length; }
    void setLength(float value) { length = value; }
    float getWeight() const { return weight; }
    void setWeight(float value) { weight = value; }
    bool getEnabled() const { return enabled; }
    void setEnabled(bool value);
    bool getLoop() const { return loop; }
    void setLoop(bool value) { loop = value; }
    bool getAnimated() const { return animated; }
    const std::string& getAnimationName() const { return name; }

    // A free counter the node keeps beside the time position.
    float getAniCurTime() const { return curTime; }
    void setAniCurTime(float t) { curTime = t; }
    void updateCurTime(float delta) { curTime += delta; }

private:
    std::string name;
    AnimationStateSet* parent;
    float timePos;
    float length;
    float weight;
    bool enabled;
    // New states loop: a character's idle animations run until stopped.
    bool loop = true;
    bool animated = false;
    float curTime = 0.0f;
};
