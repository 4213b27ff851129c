#include "spine/spEventData.h"

#include "spine/spAllocator.h"

spEventData* spEventData_create(const char* name) {
    spEventData* self = SP_NEW(spEventData);
    self->name = _spStrDup(name ? name : "");
    return self;
}

void spEventData_dispose(spEventData* self) {
    if (!self) return;
    SP_FREE(self->name);
    SP_FREE(self->stringValue);
    SP_FREE(self);
}
