#include "spine/spAttachment.h"

#include "spine/spAllocator.h"

void _spAttachment_init(spAttachment* self, const char* name, spAttachmentType type,
                        void (*dispose)(spAttachment* self)) {
    self->name = _spStrDup(name ? name : "");
    self->type = type;
    self->dispose = dispose;
}

void _spAttachment_deinit(spAttachment* self) {
    SP_FREE(self->name);
}

void spAttachment_dispose(spAttachment* self) {
    if (self) self->dispose(self);
}
