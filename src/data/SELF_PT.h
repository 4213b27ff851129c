#pragma once

// A landmark in engine pixels (y counted from the bottom).
struct SELF_PT {
    float x = 0.0f;
    float y = 0.0f;
};
