#include "logicsys/Animate2D/ZuTimeLine.h"

#include "logicsys/Animate2D/ZuKeyFrame.h"

#include <limits>

void ZuTimeLine::zuinit(float fps) {
    clearFrame();
    framePeriod = fps > 0.0f ? 1.0f / fps : std::numeric_limits<float>::infinity();
    reset();
}

void ZuTimeLine::reset() {
    current = first;
    end = false;
    mixValue = 0.0f;
    frameTime = 0.0f;
}

void ZuTimeLine::clearFrame() {
    while (first) {
        ZuKeyFrame* next = first->next;
        delete first;
        first = next;
    }
    last = nullptr;
    current = nullptr;
    frameCount = 0;
}

void ZuTimeLine::pushFrame(ZuKeyFrame* frame) {
    if (!frame) return;
    frame->next = nullptr;
    if (last) last->next = frame;
    else first = frame;
    last = frame;
    if (!current) current = first;
    frameCount++;
}

void ZuTimeLine::update(float seconds) {
    if (!last || !(framePeriod > 0.0f) || current == last) {
        end = true;
        mixValue = 0.0f;
        return;
    }
    frameTime += seconds;
    if (frameTime >= framePeriod) {
        current = current ? current->next : first;
        frameTime = 0.0f;
    }
}
