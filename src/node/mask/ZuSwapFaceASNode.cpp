#include "node/mask/ZuSwapFaceASNode.h"

#include "person/ZuASPointExt.h"

void ZuSwapFaceASNode::extendPoints(float* points, int& count) const {
    ZuASPointExt::as_foreHeadPointExtHaleCircleWithFaceLandMark(points, count);
    ZuASPointExt::as_lipsPointExtWithFaceLandMark(points, count);
    ZuASPointExt::as_faceOutlinePointExtWithFaceLandMark(points, count);
}
