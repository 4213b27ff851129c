#include "node/filter/ZuRGBCurve.h"

#include <algorithm>
#include <cstring>

namespace {

// Truncated toward zero and kept as a byte; out-of-range values wrap as an
// integer store would, never through an undefined float conversion.
unsigned char toByte(float v) {
    if (!(v > -2147483648.0f && v < 2147483520.0f)) return 0;
    return static_cast<unsigned char>(static_cast<int>(v) & 0xFF);
}

int clampInt(int v, int lo, int hi) { return std::max(lo, std::min(hi, v)); }

// A pivot that the tables can divide by: the given one below 255, else 128.
int usablePivot(int pivot) { return pivot > 0 && pivot < 255 ? pivot : 128; }

} // namespace

void ZuRGBCurve::identity(unsigned char* plane) {
    for (int i = 0; i < kPlane; ++i) plane[i] = static_cast<unsigned char>(i);
}

void ZuRGBCurve::addAll(unsigned char* plane, const unsigned char* all) {
    for (int i = 0; i < kPlane; ++i) plane[i] = static_cast<unsigned char>(clampInt(plane[i] + all[i] - i, 0, 255));
}

void ZuRGBCurve::get_single_curve_x(unsigned char* out, int pivot, int delta) {
    const int denominator = pivot * pivot - 255 * pivot;
    if (denominator == 0) {
        // A pivot at either end leaves no room for a bend.
        identity(out);
        return;
    }
    const float a = static_cast<float>(delta) / static_cast<float>(denominator);
    const float b = 1.0f - 255.0f * a;
    for (int i = 0; i < kPlane; ++i) {
        const float x = static_cast<float>(i);
        const float square = a * x * x;
        const float linear = b * x;
        out[i] = toByte(square + linear);
    }
}

void ZuRGBCurve::get_single_curve_contrast(unsigned char* out, int pivot, int lower, int upper) {
    pivot = clampInt(pivot, 1, 254);
    {
        const float a = static_cast<float>(-4.0 * lower / static_cast<double>(pivot * pivot));
        const float b = 1.0f - a * static_cast<float>(pivot);
        for (int i = 0; i < pivot; ++i) {
            const float x = static_cast<float>(i);
            const float square = a * x * x;
            const float linear = b * x;
            out[i] = toByte(square + linear);
        }
    }
    const int span = 255 - pivot;
    const float a = static_cast<float>(-4.0 * upper / static_cast<double>(span * span));
    const float b = 1.0f - static_cast<float>(pivot + 255) * a;
    const float c = 255.0f * static_cast<float>(pivot) * a;
    out[pivot] = static_cast<unsigned char>(pivot);
    for (int i = pivot + 1; i < kPlane; ++i) {
        const float x = static_cast<float>(i);
        const float square = a * x * x;
        const float linear = b * x;
        const float sum = square + linear;
        out[i] = toByte(sum + c);
    }
}

void ZuRGBCurve::adjust_contrast(unsigned char* out, int pivot, int lower, int upper) {
    if (lower > pivot) return;
    pivot = clampInt(pivot, 1, 254);
    for (int i = 0; i < pivot; ++i) {
        const float v = static_cast<float>(lower) * static_cast<float>(pivot - i) / static_cast<float>(pivot) +
                        static_cast<float>(i);
        out[i] = static_cast<unsigned char>(clampInt(static_cast<int>(v), 0, pivot));
    }
    for (int i = pivot; i < 255; ++i) {
        const float v = static_cast<float>(upper) * static_cast<float>(i - pivot) / static_cast<float>(255 - pivot) +
                        static_cast<float>(i);
        out[i] = static_cast<unsigned char>(clampInt(static_cast<int>(v), pivot, 255));
    }
    out[255] = static_cast<unsigned char>(clampInt(upper + 255, pivot, 255));
}

void ZuRGBCurve::getCurve_brightness(unsigned char* out, delta_rgb_contrast* delta) {
    unsigned char* all = out + 3 * kPlane;
    const int pivot = delta->brightPivot > 0 ? delta->brightPivot : 160;
    const bool allMade = delta->brightAll != 0;
    if (allMade) {
        delta->brightAll = clampInt(delta->brightAll, -50, 90);
        get_single_curve_x(all, pivot, delta->brightAll);
    } else {
        identity(all);
    }
    int* channels[3] = {&delta->brightR, &delta->brightG, &delta->brightB};
    for (int c = 0; c < 3; ++c) {
        unsigned char* plane = out + c * kPlane;
        // Only a brightening channel is applied, though the clamp would allow less.
        if (*channels[c] > 0) {
            *channels[c] = clampInt(*channels[c], -50, 90);
            get_single_curve_x(plane, pivot, *channels[c]);
            if (allMade) addAll(plane, all);
        } else {
            std::memcpy(plane, all, kPlane);
        }
    }
}

int ZuRGBCurve::getCurve_contrast(unsigned char* out, delta_rgb_contrast* delta) {
    unsigned char* all = out + 3 * kPlane;
    // Clamps a group's deltas; false when both pull the same way.
    auto prepare = [](delta_rgb_contrast::Group& group) {
        group.first = clampInt(group.first, -70, 70);
        group.second = clampInt(group.second, -70, 70);
        return !((group.first >= 1 && group.second > 0) || (group.first < 0 && group.second < 0));
    };
    delta_rgb_contrast::Group& allGroup = delta->contrast[3];
    const bool allMade = allGroup.pivot != 0;
    if (allMade) {
        if (!prepare(allGroup)) return -1;
        const int pivot = usablePivot(allGroup.pivot);
        // The straight variant writes nothing for a lower end above the pivot.
        identity(all);
        if (delta->contrastLinear)
            adjust_contrast(all, pivot, allGroup.second, allGroup.first);
        else
            get_single_curve_contrast(all, pivot, allGroup.second, allGroup.first);
    } else {
        identity(all);
    }
    for (int c = 0; c < 3; ++c) {
        unsigned char* plane = out + c * kPlane;
        delta_rgb_contrast::Group& group = delta->contrast[c];
        if (group.pivot > 0) {
            if (!prepare(group)) return -1;
            get_single_curve_contrast(plane, usablePivot(group.pivot), group.second, group.first);
            if (allMade) addAll(plane, all);
        } else {
            std::memcpy(plane, all, kPlane);
        }
    }
    return 0;
}
