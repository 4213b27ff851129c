#include "node/mask/Zu2DFaceMaskASNode.h"

#include "person/ZuASPointExt.h"

const char* Zu2DFaceMaskASNode::meshName(FACEMASK2DTYPE type) const {
    return type == FACEMASK2D_FULL ? "facemesh_as" : "facemesh_as_simplify";
}

const char* Zu2DFaceMaskASNode::faceName(FACEMASK2DTYPE type) const {
    return type == FACEMASK2D_FULL ? "standerface_as" : "standerface_as_simplify";
}

void Zu2DFaceMaskASNode::extendPoints(float* points, int& count, bool full) const {
    ZuASPointExt::as_foreHeadPointExtHaleCircleWithFaceLandMark(points, count);
    if (!full) return;
    ZuASPointExt::as_lipsPointExtWithFaceLandMark(points, count);
    ZuASPointExt::as_faceOutlinePointExtWithFaceLandMark(points, count);
}
