#pragma once

#include "scene/ZuActionBase.h"

// Throws a node up and lets it fall to a floor: y = startY + v t - 750 t^2
// (the game's tuning has no factor of one half).
class ZuActionMoveGravity : public ZuActionBase {
public:
    static constexpr float kGravity = 750.0f;

    ZuActionMoveGravity(float launchSpeed, float startY, float floorY)
        : m_launchSpeed(launchSpeed), m_startY(startY), m_floorY(floorY) {}

    void run(ZuNode* node, float delta) override;
    bool isEnd() override { return m_done; }

private:
    float m_launchSpeed;
    float m_startY;
    float m_time = 0.0f;
    float m_floorY;
    bool m_done = false;
};
