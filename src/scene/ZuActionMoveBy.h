#pragma once

#include "render/math/ZuVec3.h"
#include "scene/ZuActionBase.h"

// Moves a node along a direction at a constant speed, for ever: its owner
// removes it.
class ZuActionMoveBy : public ZuActionBase {
public:
    // Stored normalised; a zero direction stays zero.
    void setDir(float x, float y, float z) { m_dir = ZuVec3(x, y, z).normalized(); }
    void setSpeed(float speed) { m_speed = speed; }
    const ZuVec3& getDir() const { return m_dir; }

    void run(ZuNode* node, float delta) override;
    bool isEnd() override { return false; }

protected:
    ZuVec3 m_dir{0.0f, -1.0f, 0.0f};
    float m_speed = 10.0f;
};
