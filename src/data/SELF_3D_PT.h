#pragma once

// A three-dimensional point as the trackers send it; stored unconverted.
struct SELF_3D_PT {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
};
