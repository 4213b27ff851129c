#pragma once

class AnimationTrack;

// A moment of a track: its time in seconds and the track that owns it.
class KeyFrame {
public:
    KeyFrame(const AnimationTrack* parent, float time) : time(time), parentTrack(parent) {}
    virtual ~KeyFrame() = default;
    float getTime() const { return time; }
    const AnimationTrack* getParentTrack() const { return parentTrack; }

protected:
    float time;
    const AnimationTrack* parentTrack;
};
