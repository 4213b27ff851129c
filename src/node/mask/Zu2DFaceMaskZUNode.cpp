#include "node/mask/Zu2DFaceMaskZUNode.h"

#include "person/ZuZUPointExt.h"

const char* Zu2DFaceMaskZUNode::meshName(FACEMASK2DTYPE type) const {
    return type == FACEMASK2D_FULL ? "facemesh_zu" : "facemesh_zu_simplify";
}

const char* Zu2DFaceMaskZUNode::faceName(FACEMASK2DTYPE type) const {
    return type == FACEMASK2D_FULL ? "standerface_zu" : "standerface_zu_simplify";
}

void Zu2DFaceMaskZUNode::extendPoints(float* points, int& count, bool full) const {
    ZuZUPointExt::zu_foreHeadPointExtHaleCircleWithFaceLandMark(points, count);
    if (!full) return;
    ZuZUPointExt::zu_lipsPointExtWithFaceLandMark(points, count);
    ZuZUPointExt::zu_faceOutlinePointExtWithFaceLandMark(points, count);
}
