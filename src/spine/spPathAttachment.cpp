#include "spine/spPathAttachment.h"

#include "spine/spAllocator.h"

static void disposePath(spAttachment* attachment) {
    spPathAttachment* self = (spPathAttachment*)attachment;
    _spVertexAttachment_deinit(&self->super);
    SP_FREE(self->lengths);
    SP_FREE(self);
}

spPathAttachment* spPathAttachment_create(const char* name) {
    spPathAttachment* self = SP_NEW(spPathAttachment);
    _spVertexAttachment_init(&self->super, name, SP_ATTACHMENT_PATH, disposePath);
    self->constantSpeed = 1;
    return self;
}
