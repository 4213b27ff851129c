#pragma once

// Synthetic landmarks on the FP tracker (106 points) layout.
class ZuFPPointExt {
public:
    static void fp_foreHeadPointExtWithFaceLandMark(float* points, int& count);
    static void fp_foreHeadPointExtHaleCircleWithFaceLandMark(float* points, int& count);
    static void fp_lipsPointExtWithFaceLandMark(float* points, int& count);
    static void fp_faceOutlinePointExtWithFaceLandMark(float* points, int& count);
};
