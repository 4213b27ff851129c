#include "spine/spEvent.h"

#include "spine/spAllocator.h"

spEvent* spEvent_create(float time, spEventData* data) {
    spEvent* self = SP_NEW(spEvent);
    self->data = data;
    self->time = time;
    return self;
}

void spEvent_dispose(spEvent* self) {
    if (!self) return;
    SP_FREE(self->stringValue);
    SP_FREE(self);
}
