#include "person/ZuMathHelper.h"

#include <vector>

namespace {

float cut(float v) { return static_cast<float>(static_cast<int>(v)); }

} // namespace

void ZuMathHelper::createNormalCurve(const ZuVec2* points, int count, int steps, qz::array<ZuVec2>* out) {
    if (!points || !out || count < 3 || steps < 1) return;
    std::vector<ZuVec2> mid(count), before(count), after(count);
    for (int i = 0; i < count; ++i) {
        const ZuVec2& a = points[i];
        const ZuVec2& b = points[(i + 1) % count];
        mid[i] = ZuVec2((a.x + b.x) * 0.5f, (a.y + b.y) * 0.5f);
    }
    for (int i = 0; i < count; ++i) {
        const ZuVec2& m0 = mid[(i + count - 1) % count];
        const ZuVec2& m1 = mid[i];
        const ZuVec2 n((m0.x + m1.x) * 0.5f, (m0.y + m1.y) * 0.5f);
        const ZuVec2 offset(cut(points[i].x - n.x), cut(points[i].y - n.y));
        // Each control point is then pulled towards its vertex.
        auto pull = [&](const ZuVec2& control) {
            return ZuVec2(points[i].x + cut((control.x - points[i].x) * 0.6f),
                          points[i].y + cut((control.y - points[i].y) * 0.6f));
        };
        before[i] = pull(ZuVec2(m0.x + offset.x, m0.y + offset.y));
        after[i] = pull(ZuVec2(m1.x + offset.x, m1.y + offset.y));
    }
    for (int i = 0; i < count; ++i) {
        const ZuVec2& p0 = points[i];
        const ZuVec2& p1 = points[(i + 1) % count];
        const ZuVec2& c1 = after[i];
        const ZuVec2& c2 = before[(i + 1) % count];
        for (int k = 1; k <= steps; ++k) {
            const float t = 1.0f - static_cast<float>(k) / static_cast<float>(steps + 1);
            const float u = 1.0f - t;
            const float w0 = t * t * t, w1 = 3.0f * t * t * u, w2 = 3.0f * t * u * u, w3 = u * u * u;
            out->push_back(ZuVec2(cut(p0.x * w0 + c1.x * w1 + c2.x * w2 + p1.x * w3),
                                  cut(p0.y * w0 + c1.y * w1 + c2.y * w2 + p1.y * w3)));
        }
    }
}
