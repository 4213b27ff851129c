#include "spine/spSlot.h"

#include "spine/spAllocator.h"
#include "spine/spBone.h"
#include "spine/spSkeleton.h"
#include "spine/spSlotData.h"

spSlot* spSlot_create(spSlotData* data, spBone* bone) {
    spSlot* self = SP_NEW(spSlot);
    self->data = data;
    self->bone = bone;
    self->r = data->r;
    self->g = data->g;
    self->b = data->b;
    self->a = data->a;
    return self;
}

void spSlot_dispose(spSlot* self) {
    if (!self) return;
    SP_FREE(self->attachmentVertices);
    SP_FREE(self);
}

void spSlot_setAttachment(spSlot* self, spAttachment* attachment) {
    if (attachment == self->attachment) return;
    self->attachment = attachment;
    self->attachmentTime = self->bone->skeleton->time;
    self->attachmentVerticesCount = 0;
}

void spSlot_setAttachmentTime(spSlot* self, float time) {
    self->attachmentTime = self->bone->skeleton->time - time;
}

float spSlot_getAttachmentTime(const spSlot* self) {
    return self->bone->skeleton->time - self->attachmentTime;
}

void spSlot_setToSetupPose(spSlot* self) {
    const spSlotData* data = self->data;
    self->r = data->r;
    self->g = data->g;
    self->b = data->b;
    self->a = data->a;
    spAttachment* attachment = nullptr;
    if (data->attachmentName)
        attachment = spSkeleton_getAttachmentForSlotIndex(self->bone->skeleton, data->index, data->attachmentName);
    // Force the reset of time and deform even when the attachment is the same.
    self->attachment = nullptr;
    spSlot_setAttachment(self, attachment);
}
