#include "spine/spSlotData.h"

#include "spine/spAllocator.h"

spSlotData* spSlotData_create(int index, const char* name, spBoneData* boneData) {
    spSlotData* self = SP_NEW(spSlotData);
    self->index = index;
    self->name = _spStrDup(name ? name : "");
    self->boneData = boneData;
    self->r = self->g = self->b = self->a = 1;
    return self;
}

void spSlotData_dispose(spSlotData* self) {
    if (!self) return;
    SP_FREE(self->name);
    SP_FREE(self->attachmentName);
    SP_FREE(self);
}

void spSlotData_setAttachmentName(spSlotData* self, const char* attachmentName) {
    SP_FREE(self->attachmentName);
    self->attachmentName = _spStrDup(attachmentName);
}
