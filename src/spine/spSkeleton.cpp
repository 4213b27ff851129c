#include "spine/spSkeleton.h"

#include "spine/spAllocator.h"
#include "spine/spBone.h"
#include "spine/spBoneData.h"
#include "spine/spIkConstraint.h"
#include "spine/spIkConstraintData.h"
#include "spine/spPathAttachment.h"
#include "spine/spPathConstraint.h"
#include "spine/spPathConstraintData.h"
#include "spine/spSkeletonData.h"
#include "spine/spSkin.h"
#include "spine/spSlot.h"
#include "spine/spSlotData.h"
#include "spine/spTransformConstraint.h"
#include "spine/spTransformConstraintData.h"

#include <string.h>

spSkeleton* spSkeleton_create(spSkeletonData* data) {
    spSkeleton* self = SP_NEW(spSkeleton);
    self->data = data;
    self->r = self->g = self->b = self->a = 1;

    self->bonesCount = data->bonesCount;
    self->bones = SP_CALLOC(spBone*, self->bonesCount);
    for (int i = 0; i < self->bonesCount; i++) {
        spBoneData* boneData = data->bones[i];
        spBone* parent = boneData->parent ? self->bones[boneData->parent->index] : nullptr;
        self->bones[i] = spBone_create(boneData, self, parent);
        if (parent) parent->childrenCount++;
    }
    for (int i = 0; i < self->bonesCount; i++) {
        spBone* bone = self->bones[i];
        bone->children = SP_CALLOC(spBone*, bone->childrenCount);
        bone->childrenCount = 0;
    }
    for (int i = 0; i < self->bonesCount; i++) {
        spBone* bone = self->bones[i];
        if (bone->parent) bone->parent->children[bone->parent->childrenCount++] = bone;
    }
    self->root = self->bonesCount > 0 ? self->bones[0] : nullptr;

    self->slotsCount = data->slotsCount;
    self->slots = SP_CALLOC(spSlot*, self->slotsCount);
    self->drawOrder = SP_CALLOC(spSlot*, self->slotsCount);
    for (int i = 0; i < self->slotsCount; i++) {
        spSlotData* slotData = data->slots[i];
        self->slots[i] = spSlot_create(slotData, self->bones[slotData->boneData->index]);
        self->drawOrder[i] = self->slots[i];
    }

    self->ikConstraintsCount = data->ikConstraintsCount;
    self->ikConstraints = SP_CALLOC(spIkConstraint*, self->ikConstraintsCount);
    for (int i = 0; i < self->ikConstraintsCount; i++)
        self->ikConstraints[i] = spIkConstraint_create(data->ikConstraints[i], self);

    self->transformConstraintsCount = data->transformConstraintsCount;
    self->transformConstraints = SP_CALLOC(spTransformConstraint*, self->transformConstraintsCount);
    for (int i = 0; i < self->transformConstraintsCount; i++)
        self->transformConstraints[i] = spTransformConstraint_create(data->transformConstraints[i], self);

    self->pathConstraintsCount = data->pathConstraintsCount;
    self->pathConstraints = SP_CALLOC(spPathConstraint*, self->pathConstraintsCount);
    for (int i = 0; i < self->pathConstraintsCount; i++)
        self->pathConstraints[i] = spPathConstraint_create(data->pathConstraints[i], self);

    spSkeleton_setSlotsToSetupPose(self);
    spSkeleton_updateCache(self);
    return self;
}

void spSkeleton_dispose(spSkeleton* self) {
    if (!self) return;
    for (int i = 0; i < self->bonesCount; i++) spBone_dispose(self->bones[i]);
    SP_FREE(self->bones);
    for (int i = 0; i < self->slotsCount; i++) spSlot_dispose(self->slots[i]);
    SP_FREE(self->slots);
    SP_FREE(self->drawOrder);
    for (int i = 0; i < self->ikConstraintsCount; i++) spIkConstraint_dispose(self->ikConstraints[i]);
    SP_FREE(self->ikConstraints);
    for (int i = 0; i < self->transformConstraintsCount; i++)
        spTransformConstraint_dispose(self->transformConstraints[i]);
    SP_FREE(self->transformConstraints);
    for (int i = 0; i < self->pathConstraintsCount; i++) spPathConstraint_dispose(self->pathConstraints[i]);
    SP_FREE(self->pathConstraints);
    SP_FREE(self->updateCache);
    SP_FREE(self);
}

namespace {

// State of one updateCache run: the scratch stack is sized to the bone count
// so that deep chains need no recursion.
struct Sorter {
    spSkeleton* skeleton;
    spBone** stack;
};

void append(spSkeleton* self, spUpdateKind kind, void* object) {
    if (self->updateCacheCount == self->updateCacheCapacity) {
        int capacity = self->updateCacheCapacity ? self->updateCacheCapacity * 2 : 16;
        spUpdate* grown = SP_MALLOC(spUpdate, capacity);
        if (self->updateCacheCount) memcpy(grown, self->updateCache, sizeof(spUpdate) * self->updateCacheCount);
        SP_FREE(self->updateCache);
        self->updateCache = grown;
        self->updateCacheCapacity = capacity;
    }
    self->updateCache[self->updateCacheCount].kind = kind;
    self->updateCache[self->updateCacheCount].object = object;
    self->updateCacheCount++;
}

// Appends the bone after any of its unsorted ancestors, root first.
void sortBone(Sorter* sorter, spBone* bone) {
    int depth = 0;
    for (spBone* b = bone; b && !b->sorted; b = b->parent) sorter->stack[depth++] = b;
    while (depth > 0) {
        spBone* b = sorter->stack[--depth];
        b->sorted = 1;
        append(sorter->skeleton, SP_UPDATE_BONE, b);
    }
}

// Clears the sorted flag of every descendant, so they are appended again
// after the constraint that moved their ancestor.
void sortReset(Sorter* sorter, spBone* bone) {
    int top = 0;
    for (int i = 0; i < bone->childrenCount; i++) sorter->stack[top++] = bone->children[i];
    while (top > 0) {
        spBone* b = sorter->stack[--top];
        b->sorted = 0;
        for (int i = 0; i < b->childrenCount; i++) sorter->stack[top++] = b->children[i];
    }
}

int parentDepth(const spBone* bone) {
    int depth = 0;
    for (const spBone* b = bone->parent; b; b = b->parent) depth++;
    return depth;
}

void sortPathAttachmentBones(Sorter* sorter, const spSkin* skin, int slotIndex, spBone* slotBone) {
    if (!skin) return;
    spSkeleton* skeleton = sorter->skeleton;
    for (const spSkinEntry* entry = skin->entries; entry; entry = entry->next) {
        if (entry->slotIndex != slotIndex || entry->attachment->type != SP_ATTACHMENT_PATH) continue;
        const spPathAttachment* path = (const spPathAttachment*)entry->attachment;
        if (!path->super.bones) {
            sortBone(sorter, slotBone);
            continue;
        }
        for (int i = 0; i < path->super.bonesCount;) {
            int n = path->super.bones[i++];
            for (int j = 0; j < n && i < path->super.bonesCount; j++, i++) {
                int boneIndex = path->super.bones[i];
                if (boneIndex >= 0 && boneIndex < skeleton->bonesCount) sortBone(sorter, skeleton->bones[boneIndex]);
            }
        }
    }
}

} // namespace

void spSkeleton_updateCache(spSkeleton* self) {
    self->updateCacheCount = 0;
    for (int i = 0; i < self->bonesCount; i++) self->bones[i]->sorted = 0;
    Sorter sorter = {self, SP_MALLOC(spBone*, self->bonesCount > 0 ? self->bonesCount : 1)};

    // IK constraints on deeper chains go later; a stable insertion sort keeps
    // file order among equals.
    int ikCount = self->ikConstraintsCount;
    spIkConstraint** ik = SP_MALLOC(spIkConstraint*, ikCount > 0 ? ikCount : 1);
    int* depths = SP_MALLOC(int, ikCount > 0 ? ikCount : 1);
    for (int i = 0; i < ikCount; i++) {
        spIkConstraint* constraint = self->ikConstraints[i];
        int depth = constraint->bonesCount > 0 ? parentDepth(constraint->bones[0]) : 0;
        int j = i;
        while (j > 0 && depths[j - 1] > depth) {
            ik[j] = ik[j - 1];
            depths[j] = depths[j - 1];
            j--;
        }
        ik[j] = constraint;
        depths[j] = depth;
    }
    for (int i = 0; i < ikCount; i++) {
        spIkConstraint* constraint = ik[i];
        if (constraint->bonesCount < 1) continue;
        sortBone(&sorter, constraint->target);
        spBone* first = constraint->bones[0];
        sortBone(&sorter, first);
        append(self, SP_UPDATE_IK_CONSTRAINT, constraint);
        sortReset(&sorter, first);
        constraint->bones[constraint->bonesCount - 1]->sorted = 1;
    }
    SP_FREE(depths);
    SP_FREE(ik);

    for (int i = 0; i < self->pathConstraintsCount; i++) {
        spPathConstraint* constraint = self->pathConstraints[i];
        spSlot* slot = constraint->target;
        int slotIndex = slot->data->index;
        sortPathAttachmentBones(&sorter, self->skin, slotIndex, slot->bone);
        spSkeletonData* data = self->data;
        if (data->defaultSkin && data->defaultSkin != self->skin)
            sortPathAttachmentBones(&sorter, data->defaultSkin, slotIndex, slot->bone);
        for (int s = 0; s < data->skinsCount; s++) {
            spSkin* skin = data->skins[s];
            if (skin != self->skin && skin != data->defaultSkin)
                sortPathAttachmentBones(&sorter, skin, slotIndex, slot->bone);
        }
        for (int b = 0; b < constraint->bonesCount; b++) sortBone(&sorter, constraint->bones[b]);
        append(self, SP_UPDATE_PATH_CONSTRAINT, constraint);
        for (int b = 0; b < constraint->bonesCount; b++) sortReset(&sorter, constraint->bones[b]);
        for (int b = 0; b < constraint->bonesCount; b++) constraint->bones[b]->sorted = 1;
    }

    for (int i = 0; i < self->transformConstraintsCount; i++) {
        spTransformConstraint* constraint = self->transformConstraints[i];
        sortBone(&sorter, constraint->target);
        for (int b = 0; b < constraint->bonesCount; b++) sortBone(&sorter, constraint->bones[b]);
        append(self, SP_UPDATE_TRANSFORM_CONSTRAINT, constraint);
        for (int b = 0; b < constraint->bonesCount; b++) sortReset(&sorter, constraint->bones[b]);
        for (int b = 0; b < constraint->bonesCount; b++) constraint->bones[b]->sorted = 1;
    }

    for (int i = 0; i < self->bonesCount; i++) sortBone(&sorter, self->bones[i]);
    SP_FREE(sorter.stack);
}

void spSkeleton_updateWorldTransform(const spSkeleton* self) {
    const spUpdate* update = self->updateCache;
    for (int i = 0, n = self->updateCacheCount; i < n; i++) {
        switch (update[i].kind) {
        case SP_UPDATE_BONE: spBone_updateWorldTransform((spBone*)update[i].object); break;
        case SP_UPDATE_IK_CONSTRAINT: spIkConstraint_apply((spIkConstraint*)update[i].object); break;
        case SP_UPDATE_PATH_CONSTRAINT: spPathConstraint_apply((spPathConstraint*)update[i].object); break;
        case SP_UPDATE_TRANSFORM_CONSTRAINT:
            spTransformConstraint_apply((spTransformConstraint*)update[i].object);
            break;
        }
    }
}

void spSkeleton_setToSetupPose(const spSkeleton* self) {
    spSkeleton_setBonesToSetupPose(self);
    spSkeleton_setSlotsToSetupPose(self);
}

void spSkeleton_setBonesToSetupPose(const spSkeleton* self) {
    for (int i = 0; i < self->bonesCount; i++) spBone_setToSetupPose(self->bones[i]);
    for (int i = 0; i < self->ikConstraintsCount; i++) {
        spIkConstraint* constraint = self->ikConstraints[i];
        constraint->bendDirection = constraint->data->bendDirection;
        constraint->mix = constraint->data->mix;
    }
    for (int i = 0; i < self->transformConstraintsCount; i++) {
        spTransformConstraint* constraint = self->transformConstraints[i];
        const spTransformConstraintData* data = constraint->data;
        constraint->rotateMix = data->rotateMix;
        constraint->translateMix = data->translateMix;
        constraint->scaleMix = data->scaleMix;
        constraint->shearMix = data->shearMix;
    }
    for (int i = 0; i < self->pathConstraintsCount; i++) {
        spPathConstraint* constraint = self->pathConstraints[i];
        const spPathConstraintData* data = constraint->data;
        constraint->position = data->position;
        constraint->spacing = data->spacing;
        constraint->rotateMix = data->rotateMix;
        constraint->translateMix = data->translateMix;
    }
}

void spSkeleton_setSlotsToSetupPose(const spSkeleton* self) {
    for (int i = 0; i < self->slotsCount; i++) {
        self->drawOrder[i] = self->slots[i];
        spSlot_setToSetupPose(self->slots[i]);
    }
}

spBone* spSkeleton_findBone(const spSkeleton* self, const char* boneName) {
    int index = spSkeleton_findBoneIndex(self, boneName);
    return index < 0 ? nullptr : self->bones[index];
}

int spSkeleton_findBoneIndex(const spSkeleton* self, const char* boneName) {
    if (!boneName) return -1;
    for (int i = 0; i < self->bonesCount; i++)
        if (strcmp(self->bones[i]->data->name, boneName) == 0) return i;
    return -1;
}

spSlot* spSkeleton_findSlot(const spSkeleton* self, const char* slotName) {
    int index = spSkeleton_findSlotIndex(self, slotName);
    return index < 0 ? nullptr : self->slots[index];
}

int spSkeleton_findSlotIndex(const spSkeleton* self, const char* slotName) {
    if (!slotName) return -1;
    for (int i = 0; i < self->slotsCount; i++)
        if (strcmp(self->slots[i]->data->name, slotName) == 0) return i;
    return -1;
}

spIkConstraint* spSkeleton_findIkConstraint(const spSkeleton* self, const char* constraintName) {
    if (!constraintName) return nullptr;
    for (int i = 0; i < self->ikConstraintsCount; i++)
        if (strcmp(self->ikConstraints[i]->data->name, constraintName) == 0) return self->ikConstraints[i];
    return nullptr;
}

spTransformConstraint* spSkeleton_findTransformConstraint(const spSkeleton* self, const char* constraintName) {
    if (!constraintName) return nullptr;
    for (int i = 0; i < self->transformConstraintsCount; i++)
        if (strcmp(self->transformConstraints[i]->data->name, constraintName) == 0)
            return self->transformConstraints[i];
    return nullptr;
}

spPathConstraint* spSkeleton_findPathConstraint(const spSkeleton* self, const char* constraintName) {
    if (!constraintName) return nullptr;
    for (int i = 0; i < self->pathConstraintsCount; i++)
        if (strcmp(self->pathConstraints[i]->data->name, constraintName) == 0) return self->pathConstraints[i];
    return nullptr;
}

void spSkeleton_setSkin(spSkeleton* self, spSkin* skin) {
    if (skin) {
        if (self->skin) {
            spSkin_attachAll(skin, self, self->skin);
        } else {
            for (int i = 0; i < self->slotsCount; i++) {
                spSlot* slot = self->slots[i];
                const char* name = slot->data->attachmentName;
                if (!name) continue;
                spAttachment* attachment = spSkin_getAttachment(skin, i, name);
                if (attachment) spSlot_setAttachment(slot, attachment);
            }
        }
    }
    self->skin = skin;
}

int spSkeleton_setSkinByName(spSkeleton* self, const char* skinName) {
    if (!skinName) {
        spSkeleton_setSkin(self, nullptr);
        return 1;
    }
    spSkin* skin = spSkeletonData_findSkin(self->data, skinName);
    if (!skin) return 0;
    spSkeleton_setSkin(self, skin);
    return 1;
}

spAttachment* spSkeleton_getAttachmentForSlotName(const spSkeleton* self, const char* slotName,
                                                  const char* attachmentName) {
    int slotIndex = spSkeletonData_findSlotIndex(self->data, slotName);
    if (slotIndex < 0) return nullptr;
    return spSkeleton_getAttachmentForSlotIndex(self, slotIndex, attachmentName);
}

spAttachment* spSkeleton_getAttachmentForSlotIndex(const spSkeleton* self, int slotIndex,
                                                   const char* attachmentName) {
    if (slotIndex < 0 || !attachmentName) return nullptr;
    if (self->skin) {
        spAttachment* attachment = spSkin_getAttachment(self->skin, slotIndex, attachmentName);
        if (attachment) return attachment;
    }
    return spSkin_getAttachment(self->data->defaultSkin, slotIndex, attachmentName);
}

int spSkeleton_setAttachment(spSkeleton* self, const char* slotName, const char* attachmentName) {
    int slotIndex = spSkeleton_findSlotIndex(self, slotName);
    if (slotIndex < 0) return 0;
    spSlot* slot = self->slots[slotIndex];
    if (!attachmentName) {
        spSlot_setAttachment(slot, nullptr);
        return 1;
    }
    spAttachment* attachment = spSkeleton_getAttachmentForSlotIndex(self, slotIndex, attachmentName);
    if (!attachment) return 0;
    spSlot_setAttachment(slot, attachment);
    return 1;
}

void spSkeleton_update(spSkeleton* self, float deltaTime) {
    self->time += deltaTime;
}
