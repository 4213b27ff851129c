#include "node/mask/Zu2DFaceChangeTargetNode.h"

#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "data/DETECTTYPE.h"

#include <algorithm>
#include "node/face/ZuNodePerson.h"
#include "node/mask/Zu2DFaceMaskNode.h"
#include "node/mask/ZuFaceFrame.h"
#include "person/ZuASPointExt.h"
#include "person/ZuPerson.h"
#include "platform/ZuLog.h"
#include "render/command/RENDERSTREAMTYPE.h"

int Zu2DFaceChangeTargetNode::stream() const { return RS_FACE_MASK; }

void Zu2DFaceChangeTargetNode::update(float dt) {
    ZuPerson* person = ZuNodePerson::of(this);
    if (person) {
        person->enableCopyTarget(true);
        person->setCopyTarget(targetFace.c_str());
        copyPerson = getpersonID();
    }
    Zu2DFaceOverlayNode::update(dt);
}

void Zu2DFaceChangeTargetNode::zudestroy() {
    if (ZuPerson* person = copyPerson ? ZuNodePerson::of(this, copyPerson) : nullptr) {
        person->enableCopyTarget(false);
        person->setCopyTarget("");
    }
    Zu2DFaceOverlayNode::zudestroy();
}

int Zu2DFaceChangeTargetNode::fillVertices(const Zu2DFaceMaskNode* inner, float w, float h, int angle, float* out) {
    ZuConfig* config = ZuGBase::configOf(app);
    ZuPerson* person = ZuNodePerson::of(this);
    if (!person || !config || config->getDetectType() != DETECTTYPE_AS) {
        if (!warnedLayout) QZLOGW("change face '%s': the target reshape needs the AS tracker", getname().c_str());
        warnedLayout = true;
        return 0;
    }
    // The reshaped landmarks, extended as the inner node extends the live ones.
    float target[kMaxPoints * 2] = {};
    std::copy(person->getTargetFaceData(), person->getTargetFaceData() + 101 * 2, target);
    int count = 101;
    ZuASPointExt::as_foreHeadPointExtHaleCircleWithFaceLandMark(target, count);
    ZuASPointExt::as_lipsPointExtWithFaceLandMark(target, count);
    ZuASPointExt::as_faceOutlinePointExtWithFaceLandMark(target, count);
    const float corners[4][2] = {{0, 0}, {w, 0}, {w, h}, {0, h}};
    for (const auto& c : corners) target[count * 2] = c[0], target[count * 2 + 1] = c[1], ++count;
    if (count != inner->getLiveCount()) return 0;
    const float* live = inner->getFaceData();
    for (int i = 0; i < count; ++i) {
        float* v = &out[i * 5];
        v[0] = target[i * 2], v[1] = target[i * 2 + 1], v[2] = 0.0f;
        ZuFaceFrame::toCamera(live[i * 2], live[i * 2 + 1], w, h, angle, &v[3], &v[4]);
    }
    return count;
}
