#pragma once

#include <limits.h>
#include <math.h>

// Angle and conversion helpers shared by the skeletal runtime. Angles in the
// data are degrees; matrix work is done in radians.
#define SP_PI 3.14159265358979323846f
#define SP_DEG_RAD (SP_PI / 180.0f)
#define SP_RAD_DEG (180.0f / SP_PI)

// Wraps an angle in degrees into (-180, 180]. Non-finite input stays
// non-finite instead of looping.
inline float spWrapDegrees(float degrees) {
    if (degrees > -180.0f && degrees <= 180.0f) return degrees;
    degrees = fmodf(degrees, 360.0f);
    if (degrees > 180.0f) degrees -= 360.0f;
    else if (degrees <= -180.0f) degrees += 360.0f;
    return degrees;
}

// Wraps an angle in radians into (-pi, pi].
inline float spWrapRadians(float radians) {
    if (radians > -SP_PI && radians <= SP_PI) return radians;
    radians = fmodf(radians, 2.0f * SP_PI);
    if (radians > SP_PI) radians -= 2.0f * SP_PI;
    else if (radians <= -SP_PI) radians += 2.0f * SP_PI;
    return radians;
}

// Float to int without undefined behaviour for NaN or out-of-range values,
// which untrusted files can produce.
inline int spFloatToInt(double value) {
    if (!(value == value)) return 0;
    if (value >= 2147483647.0) return INT_MAX;
    if (value <= -2147483648.0) return INT_MIN;
    return (int)value;
}

inline float spSinDeg(float degrees) { return sinf(degrees * SP_DEG_RAD); }
inline float spCosDeg(float degrees) { return cosf(degrees * SP_DEG_RAD); }
inline float spClamp(float value, float low, float high) {
    return value < low ? low : (value > high ? high : value);
}
