#pragma once

// Synthetic landmarks on the ST tracker (106 points) layout.
class ZuSTPointExt {
public:
    static void st_foreHeadPointExtWithFaceLandMark(float* points, int& count);
    static void st_foreHeadPointExtHaleCircleWithFaceLandMark(float* points, int& count);
    static void st_lipsPointExtWithFaceLandMark(float* points, int& count);
    static void st_faceOutlinePointExtWithFaceLandMark(float* points, int& count);
};
