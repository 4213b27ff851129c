#include "person/ZuFPPointExt.h"

#include "person/ZuPointExt.h"

namespace {
const ZuPointExt::Layout kLayout = {43, 49, {34, 37}, {38, 41}, 32, {96, 103}, {84, 95}, 46, {0, 32}};
} // namespace

void ZuFPPointExt::fp_foreHeadPointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::foreHead(kLayout, points, count);
}

void ZuFPPointExt::fp_foreHeadPointExtHaleCircleWithFaceLandMark(float* points, int& count) {
    ZuPointExt::foreHeadHalfCircle(kLayout, points, count);
}

void ZuFPPointExt::fp_lipsPointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::lips(kLayout, points, count);
}

void ZuFPPointExt::fp_faceOutlinePointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::faceOutline(kLayout, points, count);
}
