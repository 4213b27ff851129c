#include "core/NodeAnimationTrack.h"

#include "core/Bone.h"

void NodeAnimationTrack::getInterpolatedKeyFrame(const TimeIndex& timeIndex, TransformKeyFrame* out) const {
    KeyFrame* a = nullptr;
    KeyFrame* b = nullptr;
    float t = getKeyFramesAtTime(timeIndex, &a, &b);
    if (!a) return;
    auto* k1 = static_cast<TransformKeyFrame*>(a);
    auto* k2 = static_cast<TransformKeyFrame*>(b);
    if (t == 0.0f) {
        out->setRotation(k1->getRotation());
        out->setTranslate(k1->getTranslate());
        out->setScale(k1->getScale());
        return;
    }
    out->setRotation(ZuQuaternion::nlerp(t, k1->getRotation(), k2->getRotation(), useShortestRotationPath));
    out->setTranslate(k1->getTranslate() + (k2->getTranslate() - k1->getTranslate()) * t);
    out->setScale(k1->getScale() + (k2->getScale() - k1->getScale()) * t);
}

void NodeAnimationTrack::applyToNode(Bone* bone, const TimeIndex& timeIndex, float weight, float scale) {
    if (frames.empty() || weight == 0.0f || !bone) return;
    TransformKeyFrame frame(this, timeIndex.getTimePos());
    getInterpolatedKeyFrame(timeIndex, &frame);
    bone->translate(frame.getTranslate() * (weight * scale), Bone::TS_PARENT);
    bone->rotate(ZuQuaternion::nlerp(weight, ZuQuaternion(), frame.getRotation(), useShortestRotationPath),
                 Bone::TS_LOCAL);
    ZuVec3 s = frame.getScale();
    const ZuVec3 one(1.0f, 1.0f, 1.0f);
    if (s != one) {
        if (scale != 1.0f) s = one + (s - one) * scale;
        else if (weight != 1.0f) s = one + (s - one) * weight;
        bone->scale(s);
    }
}
