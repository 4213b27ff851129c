#pragma once

struct GrahamPoint {
    float x, y;
};

// The big frame a triangulation starts from, and the convex hull of a point
// set by Graham's scan. Work arrays are members: no allocation per call.
class GrahamFrame {
public:
    static constexpr int kMaxPoints = 800;

    // Four corners, counter-clockwise from the lower left, of a box eight
    // extents wider than the points on every side, so that no circumcircle of
    // the frame's triangles is cut by the points' own triangles. outCount
    // becomes 4, or 0 for an empty input.
    void grahamBoundingBox(const GrahamPoint* in, int count, GrahamPoint* out, int& outCount);
    // Ids of the input points on the hull, in scan order; points that share
    // a hull position all come out. At most kMaxPoints inputs are used.
    void grahamFrame(const GrahamPoint* in, int count, int* ids, int& idCount);
    // Points 1..count-2 by their angle around point 0 (larger x first on a
    // tie); the last point stays where it is.
    static void sortByPolarAngle(GrahamPoint* points, int count);
    // True when p lies left of the line a -> b or on it: the scan keeps
    // such turns and pops the others.
    static bool judgeAimIsLeft(GrahamPoint a, GrahamPoint b, GrahamPoint p);

private:
    GrahamPoint work[kMaxPoints] = {};
    GrahamPoint stack[kMaxPoints] = {};
};
