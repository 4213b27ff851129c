#include "person/ZuPointExt.h"

#include "person/ZuMathHelper.h"

#include <cmath>
#include <vector>

namespace {

struct Point {
    float x, y;
};

Point at(const float* points, int i) { return {points[i * 2], points[i * 2 + 1]}; }

void append(float* points, int& count, float x, float y) {
    points[count * 2] = x;
    points[count * 2 + 1] = y;
    ++count;
}

float cut(float v) { return static_cast<float>(static_cast<int>(v)); }

// Whole-pixel copies of a range of landmarks, for the curve builder.
std::vector<ZuVec2> wholePixels(const float* points, const ZuPointExt::Range& range) {
    std::vector<ZuVec2> out;
    for (int i = range.first; i <= range.last; ++i) out.emplace_back(cut(points[i * 2]), cut(points[i * 2 + 1]));
    return out;
}

} // namespace

void ZuPointExt::foreHead(const Layout& layout, float* points, int& count) {
    const Point a = at(points, layout.foreheadA);
    const Point b = at(points, layout.foreheadB);
    const float angle = std::atan2(a.y - b.y, a.x - b.x);
    const float length = std::hypot(b.x - a.x, b.y - a.y);
    const float s = std::sin(angle), c = std::cos(angle);
    // Each brow point gives one forehead point: from the anchor sideways by
    // its distance to the anchor, then up by one and a half nose lengths.
    auto extend = [&](const Range& brow, float side) {
        for (int i = brow.first; i <= brow.last; ++i) {
            const Point p = at(points, i);
            const float d = std::hypot(p.x - a.x, p.y - a.y);
            const float x = cut(cut(a.x) - side * d * s);
            const float y = cut(cut(a.y) + side * d * c);
            append(points, count, x + 1.5f * length * c, y + 1.5f * length * s);
        }
    };
    extend(layout.leftBrow, 1.0f);
    extend(layout.rightBrow, -1.0f);
}

void ZuPointExt::foreHeadHalfCircle(const Layout& layout, float* points, int& count) {
    const Point p = at(points, 0);
    const Point q = at(points, layout.contourEnd);
    const Point centre = {(p.x + q.x) * 0.5f, (p.y + q.y) * 0.5f};
    const float r = std::hypot(q.x - p.x, q.y - p.y) * 0.5f;
    if (!(r > 0.0f)) return;
    float cosine = (p.x - centre.x) / r;
    cosine = cosine > 1.0f ? 1.0f : (cosine < -1.0f ? -1.0f : cosine);
    float a = std::acos(cosine) * 57.295776f;
    if (p.y - centre.y < 0.0f) a = 360.0f - a;
    for (int k = 1; k <= 8; ++k) {
        const float radians = (a - k * 20.0f) * 0.017453292f;
        append(points, count, centre.x + r * std::cos(radians), centre.y + r * std::sin(radians));
    }
}

void ZuPointExt::lips(const Layout& layout, float* points, int& count) {
    for (const Range* range : {&layout.innerLips, &layout.outerLips}) {
        const std::vector<ZuVec2> polygon = wholePixels(points, *range);
        qz::array<ZuVec2> curve;
        ZuMathHelper::createNormalCurve(polygon.data(), static_cast<int>(polygon.size()), 3, &curve);
        for (uint32_t i = 0; i < curve.size(); ++i) append(points, count, curve[i].x, curve[i].y);
    }
}

void ZuPointExt::faceOutline(const Layout& layout, float* points, int& count) {
    const Point centre = at(points, layout.outlineCentre);
    for (int i = layout.contour.first; i <= layout.contour.last; ++i) {
        const Point p = at(points, i);
        append(points, count, centre.x + 1.5f * (p.x - centre.x), centre.y + 1.5f * (p.y - centre.y));
    }
}
