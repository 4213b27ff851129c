#include "spine/spBoundingBoxAttachment.h"

#include "spine/spAllocator.h"

static void disposeBoundingBox(spAttachment* attachment) {
    _spVertexAttachment_deinit((spVertexAttachment*)attachment);
    SP_FREE(attachment);
}

spBoundingBoxAttachment* spBoundingBoxAttachment_create(const char* name) {
    spBoundingBoxAttachment* self = SP_NEW(spBoundingBoxAttachment);
    _spVertexAttachment_init(&self->super, name, SP_ATTACHMENT_BOUNDING_BOX, disposeBoundingBox);
    return self;
}
