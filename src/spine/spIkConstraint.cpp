#include "spine/spIkConstraint.h"

#include "spine/spAllocator.h"
#include "spine/spBone.h"
#include "spine/spBoneData.h"
#include "spine/spIkConstraintData.h"
#include "spine/spMath.h"
#include "spine/spSkeleton.h"

spIkConstraint* spIkConstraint_create(spIkConstraintData* data, const spSkeleton* skeleton) {
    spIkConstraint* self = SP_NEW(spIkConstraint);
    self->data = data;
    self->bendDirection = data->bendDirection;
    self->mix = data->mix;
    self->bonesCount = data->bonesCount;
    self->bones = SP_CALLOC(spBone*, data->bonesCount);
    for (int i = 0; i < data->bonesCount; i++) self->bones[i] = skeleton->bones[data->bones[i]->index];
    self->target = skeleton->bones[data->target->index];
    return self;
}

void spIkConstraint_dispose(spIkConstraint* self) {
    if (!self) return;
    SP_FREE(self->bones);
    SP_FREE(self);
}

void spIkConstraint_apply(spIkConstraint* self) {
    switch (self->bonesCount) {
    case 1:
        spIkConstraint_apply1(self->bones[0], self->target->worldX, self->target->worldY, self->mix);
        break;
    case 2:
        spIkConstraint_apply2(self->bones[0], self->bones[1], self->target->worldX, self->target->worldY,
                              self->bendDirection, self->mix);
        break;
    default:
        break;
    }
}

// A world point in the space of `bone`'s parent (the skeleton's space for a
// root bone). False when the parent's matrix can't be inverted.
static bool toParentSpace(const spBone* bone, float worldX, float worldY, float* x, float* y) {
    const spBone* parent = bone->parent;
    if (!parent) {
        *x = worldX;
        *y = worldY;
        return true;
    }
    float det = parent->a * parent->d - parent->b * parent->c;
    if (det == 0 || !(det == det)) return false;
    float dx = worldX - parent->worldX, dy = worldY - parent->worldY;
    *x = (dx * parent->d - dy * parent->b) / det;
    *y = (dy * parent->a - dx * parent->c) / det;
    return true;
}

void spIkConstraint_apply1(spBone* bone, float targetX, float targetY, float alpha) {
    float tx, ty;
    if (!toParentSpace(bone, targetX, targetY, &tx, &ty)) return;
    float rotationIK = atan2f(ty - bone->y, tx - bone->x) * SP_RAD_DEG - bone->shearX - bone->rotation;
    if (bone->scaleX < 0) rotationIK += 180;
    rotationIK = spWrapDegrees(rotationIK);
    spBone_updateWorldTransformWith(bone, bone->x, bone->y, bone->rotation + rotationIK * alpha, bone->scaleX,
                                    bone->scaleY, bone->shearX, bone->shearY);
}

// Reflects an angle (radians) through the axes whose sign is negative:
// the angle of (fx cos a, fy sin a). Its own inverse.
static float reflectAngle(float angle, float fx, float fy) {
    return atan2f(fy * sinf(angle), fx * cosf(angle));
}

// Solves A c^2 + B c + C = 0 for c in [-1, 1], preferring the root of
// smaller magnitude. Without a root there, returns the c in [-1, 1] that
// comes nearest (smallest |A c^2 + B c + C|).
static float solveCosine(float A, float B, float C) {
    float roots[2];
    int count = 0;
    if (fabsf(A) > 1e-12f) {
        float disc = B * B - 4 * A * C;
        if (disc >= 0) {
            float q = -0.5f * (B + (B < 0 ? -sqrtf(disc) : sqrtf(disc)));
            roots[count++] = q / A;
            if (q != 0) roots[count++] = C / q;
        }
    } else if (B != 0) {
        roots[count++] = -C / B;
    }
    if (count == 2 && fabsf(roots[1]) < fabsf(roots[0])) {
        float t = roots[0];
        roots[0] = roots[1];
        roots[1] = t;
    }
    if (count > 0 && roots[0] >= -1 && roots[0] <= 1) return roots[0];

    float candidates[3] = {-1, 1, 0};
    int candidateCount = 2;
    if (fabsf(A) > 1e-12f) {
        float extremum = -B / (2 * A);
        if (extremum > -1 && extremum < 1) candidates[candidateCount++] = extremum;
    }
    float best = candidates[0], bestError = fabsf(A - B + C);
    for (int i = 1; i < candidateCount; i++) {
        float c = candidates[i];
        float error = fabsf((A * c + B) * c + C);
        if (error < bestError) {
            bestError = error;
            best = c;
        }
    }
    return best;
}

void spIkConstraint_apply2(spBone* parent, spBone* child, float targetX, float targetY, int bendDirection,
                           float alpha) {
    if (alpha == 0) {
        spBone_updateWorldTransform(child);
        return;
    }
    float tx, ty;
    if (!toParentSpace(parent, targetX, targetY, &tx, &ty)) return;
    float px = parent->x, py = parent->y;
    float dx = tx - px, dy = ty - py, dd = dx * dx + dy * dy;

    // Work in a frame where the parent's scales are positive: the reflection
    // moves onto the child's position and is undone on the child's angle.
    float fx = parent->scaleX < 0 ? -1.0f : 1.0f, fy = parent->scaleY < 0 ? -1.0f : 1.0f;
    float sx = fabsf(parent->scaleX), sy = fabsf(parent->scaleY);
    float jx = fx * child->x, jy = fy * child->y;
    float childLength = fabsf(child->scaleX) * child->data->length;
    float bend = bendDirection < 0 ? -1.0f : 1.0f;

    // angle: direction of the child's bone in the parent's positive frame.
    float angle;
    if (fabsf(sx - sy) <= 0.0001f) {
        // Law of cosines on lengths measured in the parent's local units.
        float jointLength = sqrtf(jx * jx + jy * jy);
        float base = atan2f(jy, jx);
        float denominator = 2 * jointLength * childLength;
        if (sx < 1e-6f || denominator < 1e-6f) {
            angle = base;
        } else {
            float cosine = (dd / (sx * sx) - jointLength * jointLength - childLength * childLength) / denominator;
            angle = base + bend * acosf(spClamp(cosine, -1, 1));
        }
    } else {
        // The child's tip circle, scaled unevenly, is an ellipse; with the
        // joint on the parent's x axis its distance to the parent is
        // quadratic in the cosine of the child's angle.
        jy = 0;
        float A = (sx * sx - sy * sy) * childLength * childLength;
        float B = 2 * sx * sx * jx * childLength;
        float C = sx * sx * jx * jx + sy * sy * childLength * childLength - dd;
        angle = bend * acosf(spClamp(solveCosine(A, B, C), -1, 1));
    }

    float vx = sx * (jx + childLength * cosf(angle)), vy = sy * (jy + childLength * sinf(angle));
    float parentRotation = spWrapDegrees((atan2f(dy, dx) - atan2f(vy, vx)) * SP_RAD_DEG);
    float childRotation = reflectAngle(angle, fx, fy) * SP_RAD_DEG;
    if (child->scaleX < 0) childRotation -= 180;
    childRotation = spWrapDegrees(childRotation);

    parentRotation = parent->rotation + spWrapDegrees(parentRotation - parent->rotation) * alpha;
    childRotation = child->rotation + spWrapDegrees(childRotation - child->rotation) * alpha;
    spBone_updateWorldTransformWith(parent, px, py, parentRotation, parent->scaleX, parent->scaleY, 0, 0);
    spBone_updateWorldTransformWith(child, child->x, child->y, childRotation, child->scaleX, child->scaleY, 0, 0);
}
