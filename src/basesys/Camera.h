#pragma once

#include "render/math/ZuVec3.h"

// How one scene's camera delivers its frames, before rotation. Owned by
// ZuConfig, one per scene name.
class Camera {
public:
    int width = 1280;
    int height = 720;
    int angle = 90; // degrees
    bool mirror = false;
    // Ratio of the (rotated) frame to the design size in x and y, filled by
    // ZuConfig::setCameraDsp; z is not touched there.
    ZuVec3 adaptScale;
};
