#include "person/ZuSTPointExt.h"

#include "person/ZuPointExt.h"

namespace {
const ZuPointExt::Layout kLayout = {43, 49, {34, 37}, {38, 41}, 32, {96, 103}, {84, 95}, 46, {0, 32}};
} // namespace

void ZuSTPointExt::st_foreHeadPointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::foreHead(kLayout, points, count);
}

void ZuSTPointExt::st_foreHeadPointExtHaleCircleWithFaceLandMark(float* points, int& count) {
    ZuPointExt::foreHeadHalfCircle(kLayout, points, count);
}

void ZuSTPointExt::st_lipsPointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::lips(kLayout, points, count);
}

void ZuSTPointExt::st_faceOutlinePointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::faceOutline(kLayout, points, count);
}
