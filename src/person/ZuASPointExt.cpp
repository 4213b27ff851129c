#include "person/ZuASPointExt.h"

#include "person/ZuPointExt.h"

namespace {
const ZuPointExt::Layout kLayout = {97, 100, {20, 23}, {30, 33}, 18, {87, 94}, {75, 86}, 99, {0, 18}};
} // namespace

void ZuASPointExt::as_foreHeadPointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::foreHead(kLayout, points, count);
}

void ZuASPointExt::as_foreHeadPointExtHaleCircleWithFaceLandMark(float* points, int& count) {
    ZuPointExt::foreHeadHalfCircle(kLayout, points, count);
}

void ZuASPointExt::as_lipsPointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::lips(kLayout, points, count);
}

void ZuASPointExt::as_faceOutlinePointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::faceOutline(kLayout, points, count);
}
