#pragma once

struct spBoneData;
struct spSlotData;
struct spSkin;
struct spEventData;
struct spAnimation;
struct spIkConstraintData;
struct spTransformConstraintData;
struct spPathConstraintData;

// Everything read from one skeleton file; shared by the skeletons made from
// it and disposed after the last of them.
struct spSkeletonData {
    const char* version;
    const char* hash;
    float width, height;

    int bonesCount;
    spBoneData** bones;  // a parent always stands before its children

    int slotsCount;
    spSlotData** slots;

    int skinsCount;
    spSkin** skins;  // every skin, the default one included
    spSkin* defaultSkin;

    int eventsCount;
    spEventData** events;

    int animationsCount;
    spAnimation** animations;

    int ikConstraintsCount;
    spIkConstraintData** ikConstraints;

    int transformConstraintsCount;
    spTransformConstraintData** transformConstraints;

    int pathConstraintsCount;
    spPathConstraintData** pathConstraints;
};

spSkeletonData* spSkeletonData_create(void);
void spSkeletonData_dispose(spSkeletonData* self);

// Look-ups by exact name; null or -1 when absent.
spBoneData* spSkeletonData_findBone(const spSkeletonData* self, const char* boneName);
int spSkeletonData_findBoneIndex(const spSkeletonData* self, const char* boneName);
spSlotData* spSkeletonData_findSlot(const spSkeletonData* self, const char* slotName);
int spSkeletonData_findSlotIndex(const spSkeletonData* self, const char* slotName);
spSkin* spSkeletonData_findSkin(const spSkeletonData* self, const char* skinName);
spEventData* spSkeletonData_findEvent(const spSkeletonData* self, const char* eventName);
spAnimation* spSkeletonData_findAnimation(const spSkeletonData* self, const char* animationName);
spIkConstraintData* spSkeletonData_findIkConstraint(const spSkeletonData* self, const char* constraintName);
spTransformConstraintData* spSkeletonData_findTransformConstraint(const spSkeletonData* self,
                                                                  const char* constraintName);
spPathConstraintData* spSkeletonData_findPathConstraint(const spSkeletonData* self, const char* constraintName);
