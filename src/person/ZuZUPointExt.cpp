#include "person/ZuZUPointExt.h"

#include "person/ZuPointExt.h"

namespace {
const ZuPointExt::Layout kLayout = {27, 33, {18, 21}, {22, 25}, 16, {60, 67}, {48, 59}, 30, {0, 16}};
} // namespace

void ZuZUPointExt::zu_foreHeadPointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::foreHead(kLayout, points, count);
}

void ZuZUPointExt::zu_foreHeadPointExtHaleCircleWithFaceLandMark(float* points, int& count) {
    ZuPointExt::foreHeadHalfCircle(kLayout, points, count);
}

void ZuZUPointExt::zu_lipsPointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::lips(kLayout, points, count);
}

void ZuZUPointExt::zu_faceOutlinePointExtWithFaceLandMark(float* points, int& count) {
    ZuPointExt::faceOutline(kLayout, points, count);
}
