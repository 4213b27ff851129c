#pragma once

#include "scene/ZuActionBase.h"

// Debugging aid: shrinks a node at (360, 640) while spinning it about y.
// The factor and angle are shared by every instance, as the tool they came
// from expects. Ends at once like the base.
class ZuActionRot : public ZuActionBase {
public:
    void run(ZuNode* node, float delta) override;

private:
    static float s_scale;
    static float s_angle;
};
