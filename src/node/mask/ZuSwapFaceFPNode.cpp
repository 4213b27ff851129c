#include "node/mask/ZuSwapFaceFPNode.h"

#include "person/ZuFPPointExt.h"

void ZuSwapFaceFPNode::extendPoints(float* points, int& count) const {
    ZuFPPointExt::fp_foreHeadPointExtHaleCircleWithFaceLandMark(points, count);
    ZuFPPointExt::fp_lipsPointExtWithFaceLandMark(points, count);
    ZuFPPointExt::fp_faceOutlinePointExtWithFaceLandMark(points, count);
}
