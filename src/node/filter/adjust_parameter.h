#pragma once

// Run-time curve settings of ZuFilterNode. The curve routines write their
// clamped values back here, so a caller sees what was applied.
struct delta_rgb_contrast {
    bool useBrightness = false;
    bool useContrast = false;
    bool contrastLinear = false;
    int brightR = 0;
    int brightG = 0;
    int brightB = 0;
    int brightAll = 0;
    int brightPivot = 0;
    // R, G, B, All: first moves the part above the pivot, second the part below.
    struct Group {
        int first = 0;
        int second = 0;
        int pivot = 0;
    } contrast[4];
};

struct adjust_parameter {
    bool useHsv = false;
    int deltah = 0;       // degrees of hue turn
    float deltas = 0.0f;  // saturation factor
    int hsvCurve = 0;     // delta of the value curve
    delta_rgb_contrast delta;

    // The host's 23 floats: ints cut toward zero, flags true for anything but 0.
    static adjust_parameter fromFloats(const float* values);
};
