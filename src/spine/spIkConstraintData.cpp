#include "spine/spIkConstraintData.h"

#include "spine/spAllocator.h"

spIkConstraintData* spIkConstraintData_create(const char* name) {
    spIkConstraintData* self = SP_NEW(spIkConstraintData);
    self->name = _spStrDup(name ? name : "");
    self->bendDirection = 1;
    self->mix = 1;
    return self;
}

void spIkConstraintData_dispose(spIkConstraintData* self) {
    if (!self) return;
    SP_FREE(self->name);
    SP_FREE(self->bones);
    SP_FREE(self);
}
