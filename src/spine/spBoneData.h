#pragma once

// Setup pose of one bone, shared by every skeleton made from the same data.
struct spBoneData {
    int index;
    const char* name;
    spBoneData* parent;  // always stands before this bone in the data's array
    float length;
    float x, y, rotation, scaleX, scaleY, shearX, shearY;
    int inheritRotation, inheritScale;
};

spBoneData* spBoneData_create(int index, const char* name, spBoneData* parent);
void spBoneData_dispose(spBoneData* self);
