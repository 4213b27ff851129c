#include "spine/spAttachmentLoader.h"

#include "spine/spAllocator.h"

#include <stdio.h>

void _spAttachmentLoader_init(spAttachmentLoader* self,
                              spAttachment* (*createAttachment)(spAttachmentLoader* self, spSkin* skin,
                                                                spAttachmentType type, const char* name,
                                                                const char* path),
                              void (*dispose)(spAttachmentLoader* self)) {
    self->createAttachment = createAttachment;
    self->dispose = dispose;
}

void _spAttachmentLoader_deinit(spAttachmentLoader* self) {
    SP_FREE(self->error1);
    SP_FREE(self->error2);
    self->error1 = self->error2 = nullptr;
}

void _spAttachmentLoader_setError(spAttachmentLoader* self, const char* error1, const char* error2) {
    _spAttachmentLoader_deinit(self);
    self->error1 = _spStrDup(error1);
    self->error2 = _spStrDup(error2);
}

void _spAttachmentLoader_setUnknownTypeError(spAttachmentLoader* self, spAttachmentType type) {
    char number[16];
    snprintf(number, sizeof(number), "%d", (int)type);
    _spAttachmentLoader_setError(self, "Unknown attachment type: ", number);
}

spAttachment* spAttachmentLoader_createAttachment(spAttachmentLoader* self, spSkin* skin, spAttachmentType type,
                                                  const char* name, const char* path) {
    _spAttachmentLoader_deinit(self);
    return self->createAttachment(self, skin, type, name, path);
}

void spAttachmentLoader_dispose(spAttachmentLoader* self) {
    if (self) self->dispose(self);
}
