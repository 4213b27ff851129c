#include "spine/spPathConstraintData.h"

#include "spine/spAllocator.h"

spPathConstraintData* spPathConstraintData_create(const char* name) {
    spPathConstraintData* self = SP_NEW(spPathConstraintData);
    self->name = _spStrDup(name ? name : "");
    self->positionMode = SP_POSITION_MODE_PERCENT;
    self->spacingMode = SP_SPACING_MODE_LENGTH;
    self->rotateMode = SP_ROTATE_MODE_TANGENT;
    self->rotateMix = self->translateMix = 1;
    return self;
}

void spPathConstraintData_dispose(spPathConstraintData* self) {
    if (!self) return;
    SP_FREE(self->name);
    SP_FREE(self->bones);
    SP_FREE(self);
}
