#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzMap.h"

#include <cstdint>
#include <unordered_map>

class GrahamFrame;

struct DPoint {
    float x = 0.0f, y = 0.0f, z = 0.0f;
};

// An edge between two vertex ids; count is -1 on the big frame, otherwise the
// number of triangles that use it.
struct DEdge {
    int a = 0, b = 0;
    int count = 0;
    bool same(int p, int q) const { return (a == p && b == q) || (a == q && b == p); }
};

struct DTriangle {
    int a = 0, b = 0, c = 0;
    DEdge edges[3];
    float cx = 0.0f, cy = 0.0f, radius = 0.0f; // circumcircle
};

// Incremental (Bowyer-Watson) Delaunay triangulation of at most 400 points,
// for authoring face meshes offline: plain lists, every insertion scans all
// triangles, which suits a few hundred points and no frame loop. Edges are
// found through an index by their two ids, and lists close gaps by moving
// their last entry in, so one insertion costs a triangle scan and no more.
// One object serves one triangulation.
class DelaunayTriangle {
public:
    static constexpr int kMaxPoints = 400;
    static constexpr int kMaxAbandoned = 20;

    DelaunayTriangle(float width, float height);
    ~DelaunayTriangle();
    DelaunayTriangle(const DelaunayTriangle&) = delete;
    DelaunayTriangle& operator=(const DelaunayTriangle&) = delete;

    // Copies count x, y pairs. More than fit beside the frame's four corners
    // are refused with a log line (false).
    bool setAllPoints(const float* points, int count);
    // Points left out of the mesh; at most kMaxAbandoned are kept.
    void setAbandonedPointsIndex(const int* ids, int count);
    // Triangulates the points and drops every triangle on the frame corners;
    // ids are the points' input indices.
    void generateTriangles();

    // Inserts vertex id at (x, y). False, with nothing changed, when the id
    // is present already.
    bool addPoint(float x, float y, float z, int id);
    void makeEdge(int a, int b, int count);
    void makeTriangle(int a, int b, int c);
    void deleteEdge(int a, int b);
    void deleteTriangle(int a, int b, int c);
    // Removes every triangle whose three vertices are all among ids: cuts
    // the holes of eyes and mouth out of a face mesh.
    void deleteEachOtherTriangles(const int* ids, int count);

    qz::array<DTriangle> getTriangle() const { return triangles; }
    qz::array<DEdge> getEdges() const { return edges; }
    int getPointCount() const { return pointCount; }

private:
    int findEdge(int a, int b) const;
    static uint64_t edgeKey(int a, int b);
    void removeEdgeAt(uint32_t e);
    // Takes triangle index t off the list, its edges into boundary.
    void removeTriangleAt(uint32_t t, qz::array<DEdge>& boundary);
    bool isAbandoned(int id) const;

    GrahamFrame* frame = nullptr;
    qz::map<int, DPoint> vertices;
    qz::array<DEdge> edges;
    std::unordered_map<uint64_t, uint32_t> edgeIndex; // edgeKey -> place in edges
    qz::array<DTriangle> triangles;
    float points[kMaxPoints * 2] = {};
    int abandoned[kMaxAbandoned] = {};
    float width = 0.0f, height = 0.0f;
    int pointCount = 0, abandonedCount = 0;
};
