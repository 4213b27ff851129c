#include "node/mask/Zu2DFaceMaskSTNode.h"

#include "person/ZuSTPointExt.h"

const char* Zu2DFaceMaskSTNode::meshName(FACEMASK2DTYPE type) const {
    return type == FACEMASK2D_FULL ? "facemesh_st" : "facemesh_st_simplify";
}

const char* Zu2DFaceMaskSTNode::faceName(FACEMASK2DTYPE type) const {
    return type == FACEMASK2D_FULL ? "standerface_st" : "standerface_st_simplify";
}

void Zu2DFaceMaskSTNode::extendPoints(float* points, int& count, bool full) const {
    ZuSTPointExt::st_foreHeadPointExtHaleCircleWithFaceLandMark(points, count);
    if (!full) return;
    ZuSTPointExt::st_lipsPointExtWithFaceLandMark(points, count);
    ZuSTPointExt::st_faceOutlinePointExtWithFaceLandMark(points, count);
}
