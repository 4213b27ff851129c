#include "spine/spTransformConstraintData.h"

#include "spine/spAllocator.h"

spTransformConstraintData* spTransformConstraintData_create(const char* name) {
    spTransformConstraintData* self = SP_NEW(spTransformConstraintData);
    self->name = _spStrDup(name ? name : "");
    self->rotateMix = self->translateMix = self->scaleMix = self->shearMix = 1;
    return self;
}

void spTransformConstraintData_dispose(spTransformConstraintData* self) {
    if (!self) return;
    SP_FREE(self->name);
    SP_FREE(self->bones);
    SP_FREE(self);
}
