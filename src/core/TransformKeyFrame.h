#pragma once

#include "core/KeyFrame.h"
#include "render/math/ZuQuaternion.h"
#include "render/math/ZuVec3.h"

// A bone's pose at one moment: translation, scale and rotation.
class TransformKeyFrame : public KeyFrame {
public:
    TransformKeyFrame(const AnimationTrack* parent, float time) : KeyFrame(parent, time) {}
    virtual void setTranslate(const ZuVec3& t) { translate = t; }
    const ZuVec3& getTranslate() const { return translate; }
    virtual void setScale(const ZuVec3& s) { scale = s; }
    virtual const ZuVec3& getScale() const { return scale; }
    virtual void setRotation(const ZuQuaternion& q) { rotation = q; }
    virtual const ZuQuaternion& getRotation() const { return rotation; }

private:
    ZuVec3 translate{0.0f, 0.0f, 0.0f};
    ZuVec3 scale{1.0f, 1.0f, 1.0f};
    ZuQuaternion rotation;
};
