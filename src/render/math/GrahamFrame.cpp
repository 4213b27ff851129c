#include "render/math/GrahamFrame.h"

#include <algorithm>
#include <cmath>

void GrahamFrame::grahamBoundingBox(const GrahamPoint* in, int count, GrahamPoint* out, int& outCount) {
    outCount = 0;
    if (!in || !out || count <= 0) return;
    float minX = in[0].x, maxX = in[0].x, minY = in[0].y, maxY = in[0].y;
    for (int i = 1; i < count; ++i) {
        minX = std::min(minX, in[i].x), maxX = std::max(maxX, in[i].x);
        minY = std::min(minY, in[i].y), maxY = std::max(maxY, in[i].y);
    }
    // A single point or a flat set still needs a frame with area.
    const float dx = 8.0f * std::max(maxX - minX, 1.0f);
    const float dy = 8.0f * std::max(maxY - minY, 1.0f);
    out[0] = {minX - dx, minY - dy};
    out[1] = {maxX + dx, minY - dy};
    out[2] = {maxX + dx, maxY + dy};
    out[3] = {minX - dx, maxY + dy};
    outCount = 4;
}

void GrahamFrame::sortByPolarAngle(GrahamPoint* points, int count) {
    if (count < 3) return;
    const GrahamPoint o = points[0];
    auto before = [&](const GrahamPoint& a, const GrahamPoint& b) {
        const float ta = std::atan2(a.y - o.y, a.x - o.x), tb = std::atan2(b.y - o.y, b.x - o.x);
        return ta < tb || (ta == tb && a.x > b.x);
    };
    for (int pass = 1; pass < count - 1; ++pass)
        for (int i = 1; i < count - 1 - pass; ++i)
            if (before(points[i + 1], points[i])) std::swap(points[i], points[i + 1]);
}

bool GrahamFrame::judgeAimIsLeft(GrahamPoint a, GrahamPoint b, GrahamPoint p) {
    return (p.x - a.x) * (b.y - a.y) - (b.x - a.x) * (p.y - a.y) <= 0.0f;
}

void GrahamFrame::grahamFrame(const GrahamPoint* in, int count, int* ids, int& idCount) {
    idCount = 0;
    if (!in || !ids || count <= 0) return;
    count = std::min(count, kMaxPoints);
    std::copy(in, in + count, work);
    int lowest = 0;
    for (int i = 1; i < count; ++i)
        if (work[i].y < work[lowest].y || (work[i].y == work[lowest].y && work[i].x < work[lowest].x)) lowest = i;
    std::swap(work[0], work[lowest]);
    // The bubble passes leave the last point out; sorting it in by one more
    // insertion keeps the scan correct for every input order.
    sortByPolarAngle(work, count);
    const GrahamPoint o = work[0];
    auto angle = [&](const GrahamPoint& p) { return std::atan2(p.y - o.y, p.x - o.x); };
    for (int i = count - 1; i > 1 && (angle(work[i]) < angle(work[i - 1]) ||
                                      (angle(work[i]) == angle(work[i - 1]) && work[i].x > work[i - 1].x));
         --i)
        std::swap(work[i], work[i - 1]);
    int top = 0;
    for (int i = 0; i < count; ++i) {
        while (top >= 2 && !judgeAimIsLeft(stack[top - 2], stack[top - 1], work[i])) --top;
        stack[top++] = work[i];
    }
    for (int s = 0; s < top; ++s)
        for (int i = 0; i < count; ++i)
            if (in[i].x == stack[s].x && in[i].y == stack[s].y) {
                bool seen = false;
                for (int k = 0; k < idCount && !seen; ++k) seen = ids[k] == i;
                if (!seen) ids[idCount++] = i;
            }
}
