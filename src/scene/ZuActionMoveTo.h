#pragma once

#include "render/math/ZuVec3.h"
#include "scene/ZuActionBase.h"

// Moves a node in a straight line from one point to another at a speed. It
// does not clamp: the last frame may overshoot by one frame's travel, and the
// action ends once the distance covered exceeds the length.
class ZuActionMoveTo : public ZuActionBase {
public:
    // Equal points give length 0 and a zero direction: the node stays put.
    ZuActionMoveTo(const ZuVec3& from, const ZuVec3& to);

    void setSpeed(float speed) { m_speed = speed; }

    void run(ZuNode* node, float delta) override;
    bool isEnd() override { return m_distance > m_length; }

private:
    ZuVec3 m_to;
    ZuVec3 m_from;
    ZuVec3 m_dir;
    float m_length;
    float m_distance = 0.0f;
    float m_speed = 0.0f;
};
