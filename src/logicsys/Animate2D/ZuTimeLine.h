#pragma once

#include "basesys/ZuObject.h"

class ZuKeyFrame;

// The frame list of a flip-book and its clock. A frame stays for one period;
// a late tick moves on by one frame only, so no image is ever skipped. The
// last frame stays one tick more: the tick after reaching it raises the end
// flag.
class ZuTimeLine : public ZuObject {
public:
    ZuTimeLine() = default;
    ~ZuTimeLine() override { zudestroy(); }

    // fps 0 or less gives an endless period: the first frame stays.
    void zuinit(float fps);
    void zudestroy() { clearFrame(); }
    void reset();
    // Deletes every key frame.
    void clearFrame();
    // Takes ownership; appended after the last frame.
    void pushFrame(ZuKeyFrame* frame);
    // Seconds since the last call.
    void update(float seconds);

    bool isEnd() const { return end; }
    float getMixValue() const { return mixValue; }
    ZuKeyFrame* getFirst() const { return first; }
    ZuKeyFrame* getLast() const { return last; }
    ZuKeyFrame* getCurrent() const { return current; }
    unsigned getFrameCount() const { return frameCount; }
    float getFramePeriod() const { return framePeriod; }

private:
    ZuKeyFrame* first = nullptr;
    ZuKeyFrame* last = nullptr;
    ZuKeyFrame* current = nullptr;
    bool end = false;
    float mixValue = 0.0f;
    float frameTime = 0.0f;
    float framePeriod = 0.04f;
    unsigned frameCount = 0;
};
