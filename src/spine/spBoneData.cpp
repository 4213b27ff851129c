#include "spine/spBoneData.h"

#include "spine/spAllocator.h"

spBoneData* spBoneData_create(int index, const char* name, spBoneData* parent) {
    spBoneData* self = SP_NEW(spBoneData);
    self->index = index;
    self->name = _spStrDup(name ? name : "");
    self->parent = parent;
    self->scaleX = 1;
    self->scaleY = 1;
    self->inheritRotation = 1;
    self->inheritScale = 1;
    return self;
}

void spBoneData_dispose(spBoneData* self) {
    if (!self) return;
    SP_FREE(self->name);
    SP_FREE(self);
}
