#pragma once

struct spIkConstraintData;
struct spSkeleton;
struct spBone;

// Turns one bone, or a parent and its child, so that the chain's tip reaches
// the target bone's world position.
struct spIkConstraint {
    spIkConstraintData* data;
    int bonesCount;
    spBone** bones;
    spBone* target;
    int bendDirection;
    float mix;
};

spIkConstraint* spIkConstraint_create(spIkConstraintData* data, const spSkeleton* skeleton);
void spIkConstraint_dispose(spIkConstraint* self);

void spIkConstraint_apply(spIkConstraint* self);
// One bone: points its x axis at the target.
void spIkConstraint_apply1(spBone* bone, float targetX, float targetY, float alpha);
// Two bones: the child must hang directly on the parent. Solved without
// shear; the results replace both bones' world transforms.
void spIkConstraint_apply2(spBone* parent, spBone* child, float targetX, float targetY, int bendDirection,
                           float alpha);
