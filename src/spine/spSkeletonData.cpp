#include "spine/spSkeletonData.h"

#include "spine/spAllocator.h"
#include "spine/spAnimation.h"
#include "spine/spBoneData.h"
#include "spine/spEventData.h"
#include "spine/spIkConstraintData.h"
#include "spine/spPathConstraintData.h"
#include "spine/spSkin.h"
#include "spine/spSlotData.h"
#include "spine/spTransformConstraintData.h"

#include <string.h>

spSkeletonData* spSkeletonData_create(void) {
    return SP_NEW(spSkeletonData);
}

void spSkeletonData_dispose(spSkeletonData* self) {
    if (!self) return;
    for (int i = 0; i < self->bonesCount; i++) spBoneData_dispose(self->bones[i]);
    SP_FREE(self->bones);
    for (int i = 0; i < self->slotsCount; i++) spSlotData_dispose(self->slots[i]);
    SP_FREE(self->slots);
    // Animations first: deform timelines point at skin attachments.
    for (int i = 0; i < self->animationsCount; i++) spAnimation_dispose(self->animations[i]);
    SP_FREE(self->animations);
    for (int i = 0; i < self->skinsCount; i++) spSkin_dispose(self->skins[i]);
    SP_FREE(self->skins);
    for (int i = 0; i < self->eventsCount; i++) spEventData_dispose(self->events[i]);
    SP_FREE(self->events);
    for (int i = 0; i < self->ikConstraintsCount; i++) spIkConstraintData_dispose(self->ikConstraints[i]);
    SP_FREE(self->ikConstraints);
    for (int i = 0; i < self->transformConstraintsCount; i++)
        spTransformConstraintData_dispose(self->transformConstraints[i]);
    SP_FREE(self->transformConstraints);
    for (int i = 0; i < self->pathConstraintsCount; i++) spPathConstraintData_dispose(self->pathConstraints[i]);
    SP_FREE(self->pathConstraints);
    SP_FREE(self->version);
    SP_FREE(self->hash);
    SP_FREE(self);
}

#define SP_FIND(ARRAY, COUNT, NAME_FIELD, NAME)                                        \
    do {                                                                               \
        if (!(NAME)) return nullptr;                                                   \
        for (int i = 0; i < (COUNT); i++)                                              \
            if (strcmp((ARRAY)[i]->NAME_FIELD, (NAME)) == 0) return (ARRAY)[i];        \
        return nullptr;                                                                \
    } while (0)

spBoneData* spSkeletonData_findBone(const spSkeletonData* self, const char* boneName) {
    SP_FIND(self->bones, self->bonesCount, name, boneName);
}

int spSkeletonData_findBoneIndex(const spSkeletonData* self, const char* boneName) {
    spBoneData* bone = spSkeletonData_findBone(self, boneName);
    return bone ? bone->index : -1;
}

spSlotData* spSkeletonData_findSlot(const spSkeletonData* self, const char* slotName) {
    SP_FIND(self->slots, self->slotsCount, name, slotName);
}

int spSkeletonData_findSlotIndex(const spSkeletonData* self, const char* slotName) {
    spSlotData* slot = spSkeletonData_findSlot(self, slotName);
    return slot ? slot->index : -1;
}

spSkin* spSkeletonData_findSkin(const spSkeletonData* self, const char* skinName) {
    SP_FIND(self->skins, self->skinsCount, name, skinName);
}

spEventData* spSkeletonData_findEvent(const spSkeletonData* self, const char* eventName) {
    SP_FIND(self->events, self->eventsCount, name, eventName);
}

spAnimation* spSkeletonData_findAnimation(const spSkeletonData* self, const char* animationName) {
    SP_FIND(self->animations, self->animationsCount, name, animationName);
}

spIkConstraintData* spSkeletonData_findIkConstraint(const spSkeletonData* self, const char* constraintName) {
    SP_FIND(self->ikConstraints, self->ikConstraintsCount, name, constraintName);
}

spTransformConstraintData* spSkeletonData_findTransformConstraint(const spSkeletonData* self,
                                                                  const char* constraintName) {
    SP_FIND(self->transformConstraints, self->transformConstraintsCount, name, constraintName);
}

spPathConstraintData* spSkeletonData_findPathConstraint(const spSkeletonData* self, const char* constraintName) {
    SP_FIND(self->pathConstraints, self->pathConstraintsCount, name, constraintName);
}
