#pragma once

#include "scene/ZuActionMoveBy.h"

// A ZuActionMoveBy that lasts a given time, then hides its node.
class ZuActionMoveByTime : public ZuActionMoveBy {
public:
    void setTime(float seconds) { m_time = seconds; }

    void run(ZuNode* node, float delta) override;
    bool isEnd() override { return !(m_time > 0.0f); }

private:
    float m_time = 0.0f; // seconds left
};
