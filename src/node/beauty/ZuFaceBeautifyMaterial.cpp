#include "node/beauty/ZuFaceBeautifyMaterial.h"

#include "platform/ZuLog.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>
#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

// Curve values land in bytes; anything not a number counts as 0.
int toByte(double v) {
    if (!(v >= 0.0)) return 0;
    return v > 255.0 ? 255 : static_cast<int>(v);
}

// Lower and upper end of the lifted range of one channel mean.
void rangeOf(int mean, int& lo, int& hi) {
    hi = std::min(static_cast<int>(mean + (255 - mean) * 0.5), 255);
    lo = std::min(std::max(static_cast<int>(0.3 * mean), 0), hi);
}

} // namespace

ZuFaceBeautifyMaterial::ZuFaceBeautifyMaterial(ZuAppMain* app) : ZuGMaterial(app) {
    for (int i = 0; i < kLevels; ++i) table[i * 3] = table[i * 3 + 1] = table[i * 3 + 2] = static_cast<uint8_t>(i);
}

void ZuFaceBeautifyMaterial::init() {
    ZuGMaterial::init();
    AsynloadShader(app, "faceBeautifyCurve");
    updateLocation();
}

ZuFaceBeautifyMaterial::~ZuFaceBeautifyMaterial() { qzSafeRelease(lookup); }

void ZuFaceBeautifyMaterial::destroy() {
    qzSafeRelease(lookup);
    ZuGMaterial::destroy();
}

void ZuFaceBeautifyMaterial::setLookupTexture(ZuTexture* texture) {
    if (texture == lookup) return;
    qzAssignRetained(lookup, texture);
    setTexture1(texture);
    if (lookup) lookup->setData(table, kLevels * 3, true);
}

void ZuFaceBeautifyMaterial::setSmooth(float v) {
    if (v < 0.0f) return;
    smooth = v;
    updateLocation();
    smoothRefreshed = true;
}

void ZuFaceBeautifyMaterial::setGainAdjust(float v) {
    gainAdjust = v;
    gainRefreshed = true;
}

void ZuFaceBeautifyMaterial::setWidthAndHeight(float newWidth, float newHeight) {
    width = newWidth;
    height = newHeight;
    updateLocation();
}

// Sixteen blur taps: half a pixel off centre, then smooth x k pixels for k in
// -4..-1 and 4..1, first across, then down.
void ZuFaceBeautifyMaterial::updateLocation() {
    static const int steps[8] = {-4, -3, -2, -1, 4, 3, 2, 1};
    float sizes[2] = {width > 0.0f ? width : 1.0f, height > 0.0f ? height : 1.0f};
    for (int axis = 0; axis < 2; ++axis)
        for (int i = 0; i < 8; ++i) {
            float pixels = smooth * static_cast<float>(steps[i]) + (steps[i] < 0 ? -0.5f : 0.5f);
            offsets[axis * 8 + i][axis] = pixels / sizes[axis];
            offsets[axis * 8 + i][1 - axis] = 0.0f;
        }
}

void ZuFaceBeautifyMaterial::setColorAverage(int r, int g, int b, int) {
    int level = curveAdjust != 0.0f ? static_cast<int>(curveAdjust) : static_cast<int>(0.8f * smooth);
    level = std::min(std::max(level, 0), 10);
    int mean[3] = {r, g, b};
    if (!_getCurve(table, mean, level)) {
        QZLOGW("ZuFaceBeautifyMaterial: skin mean (%d, %d, %d) has no usable red; curves kept", r, g, b);
        return;
    }
    for (int i = 0; i < 3; ++i) {
        previousMean[i] = meanRGB[i];
        meanRGB[i] = mean[i];
    }
    if (lookup) lookup->setData(table, kLevels * 3, true);
    updateLocation();
    smoothRefreshed = gainRefreshed = false;
}

void ZuFaceBeautifyMaterial::get_single_curve(int lo, int hi, int dark, int gain, float curve[kLevels]) {
    lo = std::min(std::max(lo, 0), kLevels - 1);
    hi = std::min(std::max(hi, lo), kLevels);
    if (lo > 0) {
        double a = 4.0 * dark / (static_cast<double>(lo) * lo);
        double b = 1.0 - a * lo;
        for (int i = 0; i < lo; ++i) curve[i] = static_cast<float>(a * i * i + b * i);
    }
    double m = 0.5 * (hi - lo);
    double denominator = m * m - static_cast<double>(gain) * gain;
    if (gain == 0 || denominator == 0.0) {
        // No lift (or a degenerate one): straight through.
        for (int i = lo; i < hi; ++i) curve[i] = static_cast<float>(i);
    } else {
        double A = gain / denominator;
        double B = 1.0 - A * (lo + hi);
        double C = A * lo * hi;
        curve[lo] = static_cast<float>(lo);
        for (int i = lo + 1; i < hi; ++i) {
            double disc = B * B - 4.0 * A * (C - i);
            curve[i] = disc < 0.0 ? static_cast<float>(i)
                                  : static_cast<float>(toByte((std::sqrt(disc) - B) / (2.0 * A) + 0.5));
        }
    }
    for (int i = hi; i < kLevels; ++i) curve[i] = static_cast<float>(i);
}

bool ZuFaceBeautifyMaterial::_getCurve(uint8_t out[kLevels * 3], const int mean[3], int level) {
    const int R = mean[0], G = mean[1], B = mean[2];
    if (R < 1 || R > 255 || G < 0 || G > 255 || B < 0 || B > 255) return false;
    double f = R > G ? (R > B ? 1.0 : G * 1.2 / R) : std::max(G, B) * 1.2 / R;
    int loR, hiR;
    rangeOf(R, loR, hiR);
    double base = (255 - R) * 0.03 + 0.5;
    int span = std::min(static_cast<int>((hiR - R) * 0.6), 25);
    double kR = 1.1 + (255 - R) * 1.5 / 255.0;
    span = static_cast<int>(span / (kR * f));
    if (base * 10.0 > span) base = span / 10.0;
    base *= level;
    int dark = std::max(loR / 10, 2);
    int gainR = static_cast<int>(base * kR + 0.5);

    int loG, hiG, loB, hiB;
    rangeOf(G, loG, hiG);
    rangeOf(B, loB, hiB);
    int gainG = std::min(static_cast<int>(base * (1.1 + (255 - G) * 1.5 / 255.0)), static_cast<int>(0.7 * gainR));
    int gainB = std::min(static_cast<int>(base * (1.1 + (255 - B) * 1.5 / 255.0)), gainR);

    float curves[3][kLevels];
    get_single_curve(loR, hiR, dark, gainR, curves[0]);
    get_single_curve(loG, hiG, dark, gainG, curves[1]);
    get_single_curve(loB, hiB, dark, gainB, curves[2]);
    for (int i = 0; i < kLevels; ++i)
        for (int c = 0; c < 3; ++c) out[i * 3 + c] = static_cast<uint8_t>(toByte(curves[c][i]));
    return true;
}

void ZuFaceBeautifyMaterial::_refreshInner() {
    int location = uniformLocation("imageSize");
    if (location >= 0) glUniform2f(location, width, height);
    location = uniformLocation("softenStrength");
    if (location >= 0) glUniform1f(location, std::min(smooth, 1.0f));
    location = uniformLocation("width");
    if (location >= 0) glUniform1f(location, width);
    location = uniformLocation("height");
    if (location >= 0) glUniform1f(location, height);
    location = uniformLocation("m_meanRGB");
    if (location >= 0)
        glUniform3f(location, meanRGB[0] / 255.0f, meanRGB[1] / 255.0f, meanRGB[2] / 255.0f);
    char name[16];
    for (int i = 0; i < kOffsets; ++i) {
        snprintf(name, sizeof name, "location%d", i + 1);
        location = uniformLocation(name);
        if (location >= 0) glUniform2fv(location, 1, offsets[i]);
    }
}
