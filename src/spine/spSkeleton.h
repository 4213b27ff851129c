#pragma once

struct spSkeletonData;
struct spBone;
struct spSlot;
struct spSkin;
struct spAttachment;
struct spIkConstraint;
struct spTransformConstraint;
struct spPathConstraint;

enum spUpdateKind { SP_UPDATE_BONE, SP_UPDATE_IK_CONSTRAINT, SP_UPDATE_PATH_CONSTRAINT, SP_UPDATE_TRANSFORM_CONSTRAINT };

// One step of the world transform pass: a bone or a constraint.
struct spUpdate {
    spUpdateKind kind;
    void* object;
};

// An instance posed from shared skeleton data.
struct spSkeleton {
    spSkeletonData* data;

    int bonesCount;
    spBone** bones;
    spBone* root;

    int slotsCount;
    spSlot** slots;
    spSlot** drawOrder;

    int ikConstraintsCount;
    spIkConstraint** ikConstraints;
    int transformConstraintsCount;
    spTransformConstraint** transformConstraints;
    int pathConstraintsCount;
    spPathConstraint** pathConstraints;

    spSkin* skin;
    float r, g, b, a;
    float time;
    int flipX, flipY;
    float x, y;

    // Order of the world transform pass, built by spSkeleton_updateCache.
    int updateCacheCount;
    int updateCacheCapacity;
    spUpdate* updateCache;
};

spSkeleton* spSkeleton_create(spSkeletonData* data);
void spSkeleton_dispose(spSkeleton* self);

// Rebuilds the order in which bones and constraints are updated. Runs at
// creation; call again only after changing which bones constraints use.
void spSkeleton_updateCache(spSkeleton* self);
void spSkeleton_updateWorldTransform(const spSkeleton* self);

void spSkeleton_setToSetupPose(const spSkeleton* self);
void spSkeleton_setBonesToSetupPose(const spSkeleton* self);
void spSkeleton_setSlotsToSetupPose(const spSkeleton* self);

// Look-ups by name: null or -1 when absent.
spBone* spSkeleton_findBone(const spSkeleton* self, const char* boneName);
int spSkeleton_findBoneIndex(const spSkeleton* self, const char* boneName);
spSlot* spSkeleton_findSlot(const spSkeleton* self, const char* slotName);
int spSkeleton_findSlotIndex(const spSkeleton* self, const char* slotName);
spIkConstraint* spSkeleton_findIkConstraint(const spSkeleton* self, const char* constraintName);
spTransformConstraint* spSkeleton_findTransformConstraint(const spSkeleton* self, const char* constraintName);
spPathConstraint* spSkeleton_findPathConstraint(const spSkeleton* self, const char* constraintName);

// Switches skin. Slots that show an attachment of the old skin get the new
// skin's attachment of that name; without an old skin, slots get the new
// skin's setup attachments. A null skin keeps the slots as they are.
void spSkeleton_setSkin(spSkeleton* self, spSkin* skin);
// 1 on success; a null name removes the skin; 0 when no skin has the name.
int spSkeleton_setSkinByName(spSkeleton* self, const char* skinName);

// From the current skin, else the default skin; null when neither has it.
spAttachment* spSkeleton_getAttachmentForSlotName(const spSkeleton* self, const char* slotName,
                                                  const char* attachmentName);
spAttachment* spSkeleton_getAttachmentForSlotIndex(const spSkeleton* self, int slotIndex,
                                                   const char* attachmentName);
// 1 on success; a null attachment name clears the slot; 0 when the slot or
// the attachment isn't found.
int spSkeleton_setAttachment(spSkeleton* self, const char* slotName, const char* attachmentName);

void spSkeleton_update(spSkeleton* self, float deltaTime);
