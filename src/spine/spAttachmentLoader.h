#pragma once

#include "spine/spAttachment.h"

struct spSkin;

// Makes the attachments the skeleton reader asks for. A loader that returns
// null without setting an error makes the reader skip that attachment; with
// an error set, the read fails with error1 + error2.
struct spAttachmentLoader {
    const char* error1;
    const char* error2;
    spAttachment* (*createAttachment)(spAttachmentLoader* self, spSkin* skin, spAttachmentType type,
                                      const char* name, const char* path);
    void (*dispose)(spAttachmentLoader* self);
};

void _spAttachmentLoader_init(spAttachmentLoader* self,
                              spAttachment* (*createAttachment)(spAttachmentLoader* self, spSkin* skin,
                                                                spAttachmentType type, const char* name,
                                                                const char* path),
                              void (*dispose)(spAttachmentLoader* self));
void _spAttachmentLoader_deinit(spAttachmentLoader* self);
void _spAttachmentLoader_setError(spAttachmentLoader* self, const char* error1, const char* error2);
void _spAttachmentLoader_setUnknownTypeError(spAttachmentLoader* self, spAttachmentType type);

spAttachment* spAttachmentLoader_createAttachment(spAttachmentLoader* self, spSkin* skin, spAttachmentType type,
                                                  const char* name, const char* path);
void spAttachmentLoader_dispose(spAttachmentLoader* self);
