#pragma once

struct spBoneData;

// Setup of an IK constraint: one or two bones reach for the target bone.
struct spIkConstraintData {
    const char* name;
    int bonesCount;
    spBoneData** bones;
    spBoneData* target;
    int bendDirection;  // +1 or -1
    float mix;
};

spIkConstraintData* spIkConstraintData_create(const char* name);
void spIkConstraintData_dispose(spIkConstraintData* self);
