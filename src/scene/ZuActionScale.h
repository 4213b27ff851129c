#pragma once

#include "scene/ZuActionBase.h"

// Debugging aid: shrinks a node at (300, 500) while spinning it about z.
// The factor and angle are shared by every instance. Ends at once like the base.
class ZuActionScale : public ZuActionBase {
public:
    void run(ZuNode* node, float delta) override;

private:
    static float s_scale;
    static float s_angle;
};
