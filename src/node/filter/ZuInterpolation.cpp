#include "node/filter/ZuInterpolation.h"

#include <cmath>
#include <vector>

void ZuInterpolation::_secondDerivative(const double* x, const double* y, int n, double* d) {
    // Rows of the system; the two ends are fixed at 0.
    std::vector<double> lower(n, 0.0), diag(n, 1.0), upper(n, 0.0), rhs(n, 0.0);
    for (int i = 1; i < n - 1; ++i) {
        lower[i] = (x[i] - x[i - 1]) / 6.0;
        diag[i] = (x[i + 1] - x[i - 1]) / 3.0;
        upper[i] = (x[i + 1] - x[i]) / 6.0;
        rhs[i] = (y[i + 1] - y[i]) / (x[i + 1] - x[i]) - (y[i] - y[i - 1]) / (x[i] - x[i - 1]);
    }
    // Forward elimination, then back substitution.
    for (int i = 1; i < n; ++i) {
        const double factor = lower[i] / diag[i - 1];
        diag[i] -= factor * upper[i - 1];
        rhs[i] -= factor * rhs[i - 1];
    }
    d[n - 1] = rhs[n - 1] / diag[n - 1];
    for (int i = n - 2; i >= 0; --i) d[i] = (rhs[i] - upper[i] * d[i + 1]) / diag[i];
}

void ZuInterpolation::_splineCurve(CurveLine* out, const CurveLine* in) {
    if (!out || !in) return;
    const int n = static_cast<int>(in->size() / 2);
    if (n < 1) return;
    std::vector<double> x(n), y(n), d(n, 0.0);
    for (int i = 0; i < n; ++i) {
        x[i] = (*in)[2 * i];
        y[i] = (*in)[2 * i + 1];
    }
    bool rising = true;
    for (int i = 1; i < n; ++i) rising = rising && x[i] > x[i - 1];
    // Only a rising polygon makes a solvable system; otherwise straight pieces.
    if (n > 2 && rising) _secondDerivative(x.data(), y.data(), n, d.data());
    for (int i = 0; i + 1 < n; ++i) {
        const double x0 = x[i], x1 = x[i + 1];
        if (!(x1 > x0)) continue;
        const double span = x1 - x0;
        for (double px = std::ceil(x0); px < x1; px += 1.0) {
            const double t = (px - x0) / span;
            const double a = 1.0 - t;
            double py = a * y[i] + t * y[i + 1] + span * span / 6.0 * ((a * a * a - a) * d[i] + (t * t * t - t) * d[i + 1]);
            py = py < 0.0 ? 0.0 : (py > 255.0 ? 255.0 : py);
            out->push_back(static_cast<float>(px));
            out->push_back(static_cast<float>(py));
        }
    }
    out->push_back(static_cast<float>(x[n - 1]));
    out->push_back(static_cast<float>(y[n - 1]));
}
