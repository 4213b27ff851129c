#include "render/math/DelaunayTriangle.h"

#include "basesys/ZuCheck.h"
#include "platform/ZuLog.h"
#include "render/math/GrahamFrame.h"

#include <algorithm>
#include <cmath>

DelaunayTriangle::DelaunayTriangle(float width, float height) : width(width), height(height) {}

DelaunayTriangle::~DelaunayTriangle() { delete frame; }

bool DelaunayTriangle::setAllPoints(const float* in, int count) {
    QZ_REQUIRE_OR(in && count >= 0 && count <= kMaxPoints - 4, false,
                  "DelaunayTriangle: %d points, at most %d fit beside the frame", count, kMaxPoints - 4);
    std::copy(in, in + count * 2, points);
    pointCount = count;
    return true;
}

void DelaunayTriangle::setAbandonedPointsIndex(const int* ids, int count) {
    abandonedCount = ids ? std::max(0, std::min(count, kMaxAbandoned)) : 0;
    if (ids && count > kMaxAbandoned)
        QZLOGW("DelaunayTriangle: %d abandoned points, only the first %d kept", count, kMaxAbandoned);
    std::copy(ids, ids + abandonedCount, abandoned);
}

bool DelaunayTriangle::isAbandoned(int id) const {
    for (int i = 0; i < abandonedCount; ++i)
        if (abandoned[i] == id) return true;
    return false;
}

void DelaunayTriangle::generateTriangles() {
    if (pointCount <= 0) return;
    delete frame;
    frame = new GrahamFrame();
    GrahamPoint input[kMaxPoints];
    for (int i = 0; i < pointCount; ++i) input[i] = {points[i * 2], points[i * 2 + 1]};
    GrahamPoint corners[4];
    int cornerCount = 0;
    frame->grahamBoundingBox(input, pointCount, corners, cornerCount);
    if (cornerCount != 4) return;
    const int n = pointCount;
    for (int k = 0; k < 4; ++k) {
        points[(n + k) * 2] = corners[k].x;
        points[(n + k) * 2 + 1] = corners[k].y;
    }
    pointCount += 4;
    for (int k = 0; k < 4; ++k) addPoint(corners[k].x, corners[k].y, 0.0f, n + k);
    makeEdge(n, n + 1, -1);
    makeEdge(n + 1, n + 2, -1);
    makeEdge(n + 2, n + 3, -1);
    makeEdge(n + 3, n, -1);
    makeTriangle(n, n + 1, n + 2);
    makeTriangle(n, n + 2, n + 3);
    for (int i = 0; i < pointCount; ++i)
        if (!isAbandoned(i)) addPoint(points[i * 2], points[i * 2 + 1], 0.0f, i);
    for (uint32_t t = triangles.size(); t-- > 0;) {
        if (t >= triangles.size()) continue;
        const DTriangle& tri = triangles[t];
        if (tri.a >= n || tri.b >= n || tri.c >= n) {
            qz::array<DEdge> dropped;
            removeTriangleAt(t, dropped);
        }
    }
    // The corners leave with their triangles: the point count is the input's.
    pointCount = n;
}

bool DelaunayTriangle::addPoint(float x, float y, float z, int id) {
    if (vertices.find(id)) return false;
    DPoint point;
    point.x = x, point.y = y, point.z = z;
    vertices.insert(id, point);
    qz::array<uint32_t> inside;
    for (uint32_t t = 0; t < triangles.size(); ++t) {
        const DTriangle& tri = triangles[t];
        const float dx = x - tri.cx, dy = y - tri.cy;
        if (std::sqrt(dx * dx + dy * dy) <= tri.radius) inside.push_back(t);
    }
    qz::array<DEdge> boundary;
    // Last first: a gap is filled from the list's end, which holds no
    // triangle still to be removed.
    for (uint32_t k = inside.size(); k-- > 0;) removeTriangleAt(inside[k], boundary);
    for (uint32_t e = 0; e < boundary.size(); ++e) makeTriangle(boundary[e].a, id, boundary[e].b);
    return true;
}

uint64_t DelaunayTriangle::edgeKey(int a, int b) {
    const uint32_t lo = static_cast<uint32_t>(a < b ? a : b), hi = static_cast<uint32_t>(a < b ? b : a);
    return (static_cast<uint64_t>(hi) << 32) | lo;
}

int DelaunayTriangle::findEdge(int a, int b) const {
    auto it = edgeIndex.find(edgeKey(a, b));
    return it == edgeIndex.end() ? -1 : static_cast<int>(it->second);
}

void DelaunayTriangle::removeEdgeAt(uint32_t e) {
    const uint32_t last = edges.size() - 1;
    edgeIndex.erase(edgeKey(edges[e].a, edges[e].b));
    if (e != last) {
        edges[e] = edges[last];
        edgeIndex[edgeKey(edges[e].a, edges[e].b)] = e;
    }
    edges.erase(last);
}

void DelaunayTriangle::makeEdge(int a, int b, int count) {
    if (findEdge(a, b) >= 0) return; // one entry per pair of ids
    DEdge edge;
    edge.a = a, edge.b = b, edge.count = count;
    edgeIndex[edgeKey(a, b)] = edges.size();
    edges.push_back(edge);
}

void DelaunayTriangle::deleteEdge(int a, int b) {
    const int e = findEdge(a, b);
    if (e >= 0) removeEdgeAt(static_cast<uint32_t>(e));
}

void DelaunayTriangle::makeTriangle(int a, int b, int c) {
    auto* pa = vertices.find(a);
    auto* pb = vertices.find(b);
    auto* pc = vertices.find(c);
    if (!pa || !pb || !pc) return;
    const DPoint p1 = pa->getValue(), p2 = pb->getValue(), p3 = pc->getValue();
    auto equal = [](const DPoint& u, const DPoint& v) { return u.x == v.x && u.y == v.y; };
    if (equal(p1, p2) || equal(p2, p3) || equal(p1, p3)) return;
    DTriangle tri;
    tri.a = a, tri.b = b, tri.c = c;
    const float x1 = p1.x, y1 = p1.y, x2 = p2.x, y2 = p2.y, x3 = p3.x, y3 = p3.y;
    const float A = x1 * x1 - x2 * x2 + y1 * y1 - y2 * y2;
    const float B = x1 * x1 - x3 * x3 + y1 * y1 - y3 * y3;
    const float P = 2.0f * (y1 - y3) * (x1 - x2);
    const float Q = 2.0f * (y1 - y2) * (x1 - x3);
    tri.cx = (A * (y1 - y3) - B * (y1 - y2)) / (P - Q);
    tri.cy = (A * (x1 - x3) - B * (x1 - x2)) / (Q - P);
    tri.radius = std::sqrt((tri.cx - x1) * (tri.cx - x1) + (tri.cy - y1) * (tri.cy - y1));
    const int ends[3][2] = {{a, b}, {b, c}, {c, a}};
    for (int k = 0; k < 3; ++k) {
        tri.edges[k].a = ends[k][0], tri.edges[k].b = ends[k][1], tri.edges[k].count = 1;
        const int e = findEdge(ends[k][0], ends[k][1]);
        if (e < 0) makeEdge(ends[k][0], ends[k][1], 1);
        else if (edges[e].count != -1) ++edges[e].count;
    }
    triangles.push_back(tri);
}

void DelaunayTriangle::removeTriangleAt(uint32_t t, qz::array<DEdge>& boundary) {
    if (t >= triangles.size()) return;
    const DTriangle tri = triangles[t];
    for (const DEdge& side : tri.edges) {
        const int e = findEdge(side.a, side.b);
        if (e < 0) continue;
        DEdge& edge = edges[e];
        if (edge.count == 2) {
            edge.count = 1;
            boundary.push_back(side);
        } else if (edge.count == -1) {
            boundary.push_back(side);
        } else {
            for (uint32_t k = 0; k < boundary.size(); ++k)
                if (boundary[k].same(side.a, side.b)) {
                    boundary.erase(k);
                    break;
                }
            removeEdgeAt(static_cast<uint32_t>(e));
        }
    }
    const uint32_t last = triangles.size() - 1;
    if (t != last) triangles[t] = triangles[last];
    triangles.erase(last);
}

void DelaunayTriangle::deleteTriangle(int a, int b, int c) {
    for (uint32_t t = 0; t < triangles.size(); ++t) {
        const DTriangle& tri = triangles[t];
        const bool hasA = tri.a == a || tri.b == a || tri.c == a;
        const bool hasB = tri.a == b || tri.b == b || tri.c == b;
        const bool hasC = tri.a == c || tri.b == c || tri.c == c;
        if (hasA && hasB && hasC) {
            qz::array<DEdge> dropped;
            removeTriangleAt(t, dropped);
            return;
        }
    }
}

void DelaunayTriangle::deleteEachOtherTriangles(const int* ids, int count) {
    if (!ids) return;
    for (int i = 0; i < count; ++i)
        for (int j = i + 1; j < count; ++j)
            for (int k = j + 1; k < count; ++k)
                if (ids[i] != ids[j] && ids[j] != ids[k] && ids[i] != ids[k]) deleteTriangle(ids[i], ids[j], ids[k]);
}
