#pragma once

#include "scene/ZuActionBase.h"

// Drives a node up or down from a head pitch that the caller keeps updating:
// beyond +-3 degrees the node moves at the speed limit, within it it stops.
// y stays between bottom and top. Never ends by itself.
class ZuActionMoveInertia : public ZuActionBase {
public:
    static constexpr float kDeadZone = 3.0f;

    ZuActionMoveInertia(float speedLimit, float second) : m_speedLimit(speedLimit), m_second(second) {}

    void setPitch(float degrees) { m_pitch = degrees; }
    void setSpeed(float speedLimit) { m_speedLimit = speedLimit; }
    void setLimit(float top, float bottom) {
        m_top = top;
        m_bottom = bottom;
    }

    void run(ZuNode* node, float delta) override;
    bool isEnd() override { return false; }

private:
    float m_pitch = 0.0f;
    float m_speedLimit;
    float m_second;
    float m_velocity = 0.0f;
    float m_top = 1200.0f;
    float m_bottom = 40.0f;
};
