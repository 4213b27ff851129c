#include "node/mask/Zu2DFaceRealNode.h"

#include "node/mask/Zu2DFaceMaskNode.h"
#include "node/mask/ZuFaceFrame.h"
#include "render/command/RENDERSTREAMTYPE.h"

int Zu2DFaceRealNode::stream() const { return RS_OVERLAY; }

int Zu2DFaceRealNode::fillVertices(const Zu2DFaceMaskNode* inner, float w, float h, int angle, float* out) {
    const float* points = inner->getFaceData();
    const int n = inner->getLiveCount();
    for (int i = 0; i < n; ++i) {
        float* v = &out[i * 5];
        v[0] = points[i * 2], v[1] = points[i * 2 + 1], v[2] = 0.0f;
        ZuFaceFrame::toCamera(points[i * 2], points[i * 2 + 1], w, h, angle, &v[3], &v[4]);
    }
    return n;
}
