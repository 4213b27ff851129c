#pragma once

#include "node/filter/adjust_parameter.h"

// The 256-entry tables of the run-time curve look, computed on the CPU once
// per setting. Brightness and contrast fill four planes of 256 bytes: R, G,
// B, All. Everything is single-precision arithmetic in a fixed order, built
// without fused multiply-add, so the tables are the same on every machine.
class ZuRGBCurve {
public:
    static constexpr int kPlane = 256;

    static void getCurve_brightness(unsigned char* out, delta_rgb_contrast* delta);
    // 0, or -1 when a group's two deltas pull the same way.
    static int getCurve_contrast(unsigned char* out, delta_rgb_contrast* delta);
    // The parabola through (0, 0), (255, 255) and (pivot, pivot + delta).
    static void get_single_curve_x(unsigned char* out, int pivot, int delta);
    // Two parabolas meeting at (pivot, pivot); lower bends the part below.
    static void get_single_curve_contrast(unsigned char* out, int pivot, int lower, int upper);
    // Two straight pieces through (pivot, pivot); nothing when lower > pivot.
    static void adjust_contrast(unsigned char* out, int pivot, int lower, int upper);

private:
    static void identity(unsigned char* plane);
    // plane[i] + all[i] - i, clamped: a channel's own curve on top of All's.
    static void addAll(unsigned char* plane, const unsigned char* all);
};
