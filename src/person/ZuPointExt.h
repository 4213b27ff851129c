#pragma once

// Synthetic landmarks that trackers do not deliver: a forehead above the
// brows, a half circle over the head, smooth lip curves and an outline
// around the contour. One layout per back end names the landmarks each step
// starts from; ZuASPointExt and its siblings bind a layout to these steps.
//
// Points are x, y pairs; count is the write position in points, and new
// points are appended there. The buffer must have room for kMaxAdded more.
class ZuPointExt {
public:
    struct Range {
        int first, last; // inclusive
        int size() const { return last - first + 1; }
    };
    struct Layout {
        int foreheadA, foreheadB;
        Range leftBrow, rightBrow;
        int contourEnd;
        Range innerLips, outerLips;
        int outlineCentre;
        Range contour;
    };

    static constexpr int kMaxAdded = 8 + 8 + 60 + 33;

    static void foreHead(const Layout& layout, float* points, int& count);
    static void foreHeadHalfCircle(const Layout& layout, float* points, int& count);
    static void lips(const Layout& layout, float* points, int& count);
    static void faceOutline(const Layout& layout, float* points, int& count);
};
