#include "node/filter/adjust_parameter.h"

namespace {

// Cut toward zero; NaN and values beyond an int's range (host garbage) must
// not reach the conversion, whose result would be undefined.
int cut(float v) {
    if (!(v == v)) return 0;
    if (v >= 2147483520.0f) return 2147483647;
    if (v <= -2147483648.0f) return -2147483647 - 1;
    return static_cast<int>(v);
}

} // namespace

adjust_parameter adjust_parameter::fromFloats(const float* values) {
    adjust_parameter record;
    if (!values) return record;
    delta_rgb_contrast& d = record.delta;
    d.brightR = cut(values[0]);
    d.brightG = cut(values[1]);
    d.brightB = cut(values[2]);
    d.brightAll = cut(values[3]);
    d.brightPivot = cut(values[4]);
    for (int group = 0; group < 4; ++group) {
        d.contrast[group].first = cut(values[5 + group * 3]);
        d.contrast[group].second = cut(values[6 + group * 3]);
        d.contrast[group].pivot = cut(values[7 + group * 3]);
    }
    d.useBrightness = values[17] != 0.0f;
    d.useContrast = values[18] != 0.0f;
    record.useHsv = values[19] != 0.0f;
    record.deltah = cut(values[20]);
    record.deltas = values[21];
    record.hsvCurve = cut(values[22]);
    return record;
}
