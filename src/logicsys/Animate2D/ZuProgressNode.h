#pragma once

#include "logicsys/Animate2D/ZuAniSpineNode.h"

// A bar drawn by a skeletal clip that the clock never plays: the clip's
// frame follows the value, from its start at 0 to its end at the maximum,
// and runs back when the value falls.
class ZuProgressNode : public ZuAniSpineNode {
public:
    explicit ZuProgressNode(ZuAppMain* app);

    void update(float delta) override;
    // Ignored above the maximum; nothing without a skeleton.
    void setProgress(float value);
    float getProgress() const { return progress; }
    float getShownTime() const { return shownTime; }
    void setMaximum(float value) { maximum = value > 0.0f ? value : maximum; }

private:
    float maximum = 100.0f;
    float progress = 0.0f;
    float duration = 1320.0f;
    float shownTime = 0.0f;
};
