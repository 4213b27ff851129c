#pragma once

#include "render/math/ZuVec3.h"
#include "scene/ZuActionBase.h"

// Moves a node from a start to a stop point at a speed, clamped at the stop.
// Its isEnd is the base one (true): a node drops it before its first run
// unless a subclass says otherwise.
class ZuActionMov : public ZuActionBase {
public:
    void setStartPoint(float x, float y, float z);
    void setStopPoint(float x, float y, float z);
    void setSpeed(float speed);
    void reset() { m_time = 0.0f; }

    void run(ZuNode* node, float delta) override;

    float getTotal() const { return m_total; }

protected:
    void computeTotal();

    ZuVec3 m_start{0.0f, 0.0f, 0.0f};
    ZuVec3 m_stop{100.0f, 100.0f, 0.0f};
    float m_speed = 1.0f;
    float m_time = 0.0f;
    float m_total = 0.0f; // seconds from start to stop
};
