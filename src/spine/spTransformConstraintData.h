#pragma once

struct spBoneData;

// Setup of a transform constraint: bones copy the target's world rotation,
// position, scale and shear, each by its own mix and with offsets.
struct spTransformConstraintData {
    const char* name;
    int bonesCount;
    spBoneData** bones;
    spBoneData* target;
    float rotateMix, translateMix, scaleMix, shearMix;
    float offsetRotation, offsetX, offsetY, offsetScaleX, offsetScaleY, offsetShearY;
};

spTransformConstraintData* spTransformConstraintData_create(const char* name);
void spTransformConstraintData_dispose(spTransformConstraintData* self);
