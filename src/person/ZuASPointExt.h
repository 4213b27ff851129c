#pragma once

// Synthetic landmarks on the AS tracker (101 points) layout.
class ZuASPointExt {
public:
    static void as_foreHeadPointExtWithFaceLandMark(float* points, int& count);
    static void as_foreHeadPointExtHaleCircleWithFaceLandMark(float* points, int& count);
    static void as_lipsPointExtWithFaceLandMark(float* points, int& count);
    static void as_faceOutlinePointExtWithFaceLandMark(float* points, int& count);
};
