#pragma once

// Synthetic landmarks on the own tracker (70 points) layout.
class ZuZUPointExt {
public:
    static void zu_foreHeadPointExtWithFaceLandMark(float* points, int& count);
    static void zu_foreHeadPointExtHaleCircleWithFaceLandMark(float* points, int& count);
    static void zu_lipsPointExtWithFaceLandMark(float* points, int& count);
    static void zu_faceOutlinePointExtWithFaceLandMark(float* points, int& count);
};
