#include "node/mask/Zu2DFaceMaskFPNode.h"

#include "person/ZuFPPointExt.h"

const char* Zu2DFaceMaskFPNode::meshName(FACEMASK2DTYPE type) const {
    return type == FACEMASK2D_FULL ? "facemesh_fp" : "facemesh_fp_simplify";
}

const char* Zu2DFaceMaskFPNode::faceName(FACEMASK2DTYPE type) const {
    return type == FACEMASK2D_FULL ? "standerface_fp" : "standerface_fp_simplify";
}

void Zu2DFaceMaskFPNode::extendPoints(float* points, int& count, bool full) const {
    ZuFPPointExt::fp_foreHeadPointExtHaleCircleWithFaceLandMark(points, count);
    if (!full) return;
    ZuFPPointExt::fp_lipsPointExtWithFaceLandMark(points, count);
    ZuFPPointExt::fp_faceOutlinePointExtWithFaceLandMark(points, count);
}
