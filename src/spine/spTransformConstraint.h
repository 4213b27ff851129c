#pragma once

struct spTransformConstraintData;
struct spSkeleton;
struct spBone;

// Moves the world transforms of its bones towards the target bone's.
struct spTransformConstraint {
    spTransformConstraintData* data;
    int bonesCount;
    spBone** bones;
    spBone* target;
    float rotateMix, translateMix, scaleMix, shearMix;
};

spTransformConstraint* spTransformConstraint_create(spTransformConstraintData* data, const spSkeleton* skeleton);
void spTransformConstraint_dispose(spTransformConstraint* self);
void spTransformConstraint_apply(spTransformConstraint* self);
