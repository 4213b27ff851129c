#pragma once

struct spBoneData;
struct spSkeleton;

// A bone of one skeleton: its local pose (set by animations) and the world
// transform computed from it.
struct spBone {
    spBoneData* data;
    spSkeleton* skeleton;
    spBone* parent;
    int childrenCount;
    spBone** children;

    float x, y, rotation, scaleX, scaleY, shearX, shearY;
    float appliedRotation;  // the rotation last used for the world transform

    // World matrix (a b / c d) and position, in the skeleton's space.
    float a, b, worldX;
    float c, d, worldY;
    float worldSignX, worldSignY;

    int sorted;  // used while the skeleton builds its update order
};

// Makes world y point down; changes the sign test for the root bones of
// every skeleton. Process-wide, set once at start.
void spBone_setYDown(int yDown);
int spBone_isYDown(void);

spBone* spBone_create(spBoneData* data, spSkeleton* skeleton, spBone* parent);
void spBone_dispose(spBone* self);

void spBone_setToSetupPose(spBone* self);
void spBone_updateWorldTransform(spBone* self);
void spBone_updateWorldTransformWith(spBone* self, float x, float y, float rotation, float scaleX, float scaleY,
                                     float shearX, float shearY);

float spBone_getWorldRotationX(const spBone* self);
float spBone_getWorldRotationY(const spBone* self);
float spBone_getWorldScaleX(const spBone* self);
float spBone_getWorldScaleY(const spBone* self);

void spBone_worldToLocal(const spBone* self, float worldX, float worldY, float* localX, float* localY);
void spBone_localToWorld(const spBone* self, float localX, float localY, float* worldX, float* worldY);
