#include "node/mask/ZuSwapFaceSTNode.h"

#include "person/ZuSTPointExt.h"

void ZuSwapFaceSTNode::extendPoints(float* points, int& count) const {
    ZuSTPointExt::st_foreHeadPointExtHaleCircleWithFaceLandMark(points, count);
    ZuSTPointExt::st_lipsPointExtWithFaceLandMark(points, count);
    ZuSTPointExt::st_faceOutlinePointExtWithFaceLandMark(points, count);
}
