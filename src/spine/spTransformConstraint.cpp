#include "spine/spTransformConstraint.h"

#include "spine/spAllocator.h"
#include "spine/spBone.h"
#include "spine/spBoneData.h"
#include "spine/spMath.h"
#include "spine/spSkeleton.h"
#include "spine/spTransformConstraintData.h"

spTransformConstraint* spTransformConstraint_create(spTransformConstraintData* data, const spSkeleton* skeleton) {
    spTransformConstraint* self = SP_NEW(spTransformConstraint);
    self->data = data;
    self->rotateMix = data->rotateMix;
    self->translateMix = data->translateMix;
    self->scaleMix = data->scaleMix;
    self->shearMix = data->shearMix;
    self->bonesCount = data->bonesCount;
    self->bones = SP_CALLOC(spBone*, data->bonesCount);
    for (int i = 0; i < data->bonesCount; i++) self->bones[i] = skeleton->bones[data->bones[i]->index];
    self->target = skeleton->bones[data->target->index];
    return self;
}

void spTransformConstraint_dispose(spTransformConstraint* self) {
    if (!self) return;
    SP_FREE(self->bones);
    SP_FREE(self);
}

void spTransformConstraint_apply(spTransformConstraint* self) {
    const spTransformConstraintData* data = self->data;
    const spBone* target = self->target;
    float ta = target->a, tb = target->b, tc = target->c, td = target->d;
    for (int i = 0; i < self->bonesCount; i++) {
        spBone* bone = self->bones[i];

        if (self->rotateMix > 0) {
            float r = atan2f(tc, ta) - atan2f(bone->c, bone->a) + data->offsetRotation * SP_DEG_RAD;
            r = spWrapRadians(r) * self->rotateMix;
            float cosine = cosf(r), sine = sinf(r);
            float a = bone->a, b = bone->b, c = bone->c, d = bone->d;
            bone->a = cosine * a - sine * c;
            bone->b = cosine * b - sine * d;
            bone->c = sine * a + cosine * c;
            bone->d = sine * b + cosine * d;
        }

        if (self->translateMix > 0) {
            float x, y;
            spBone_localToWorld(target, data->offsetX, data->offsetY, &x, &y);
            bone->worldX += (x - bone->worldX) * self->translateMix;
            bone->worldY += (y - bone->worldY) * self->translateMix;
        }

        if (self->scaleMix > 0) {
            float s = sqrtf(bone->a * bone->a + bone->c * bone->c);
            float ts = sqrtf(ta * ta + tc * tc);
            float factor = s > 0.00001f ? (s + (ts - s + data->offsetScaleX) * self->scaleMix) / s : 0;
            bone->a *= factor;
            bone->c *= factor;
            s = sqrtf(bone->b * bone->b + bone->d * bone->d);
            ts = sqrtf(tb * tb + td * td);
            factor = s > 0.00001f ? (s + (ts - s + data->offsetScaleY) * self->scaleMix) / s : 0;
            bone->b *= factor;
            bone->d *= factor;
        }

        if (self->shearMix > 0) {
            // Shear is the angle between the y and x axes beyond 90 degrees.
            float by = atan2f(bone->d, bone->b);
            float r = atan2f(td, tb) - atan2f(tc, ta) - (by - atan2f(bone->c, bone->a));
            r = spWrapRadians(r);
            r = by + (r + data->offsetShearY * SP_DEG_RAD) * self->shearMix;
            float s = sqrtf(bone->b * bone->b + bone->d * bone->d);
            bone->b = cosf(r) * s;
            bone->d = sinf(r) * s;
        }
    }
}
