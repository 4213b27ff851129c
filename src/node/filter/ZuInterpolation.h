#pragma once

#include "basesys/qzArray.h"

// A curve as x, y pairs in one array.
using CurveLine = qz::array<float>;
using CurveLines = qz::array<CurveLine*>;

// Tone curves from a few control points: a natural cubic spline (no bend at
// either end) sampled at every whole x, values kept in 0..255.
class ZuInterpolation {
public:
    // An empty entry that a curve file's own interpolation would take; the
    // spline below is what the engine offers.
    static void interpolation(CurveLine* out, CurveLine* in) {}

    // out receives (x, y) for every whole x from the first point up to the
    // last, then the last point itself. Points must rise in x; a segment
    // that does not is skipped.
    static void _splineCurve(CurveLine* out, const CurveLine* in);

private:
    // Second derivatives at the points, by elimination of the tridiagonal
    // system, in double precision.
    static void _secondDerivative(const double* x, const double* y, int n, double* d);
};
