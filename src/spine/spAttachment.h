#pragma once

enum spAttachmentType {
    SP_ATTACHMENT_REGION,
    SP_ATTACHMENT_BOUNDING_BOX,
    SP_ATTACHMENT_MESH,
    SP_ATTACHMENT_LINKED_MESH,
    SP_ATTACHMENT_PATH
};

// Base record of everything a slot can show. Concrete attachments start with
// this record and set `dispose` to their own release function. A linked mesh
// is read as SP_ATTACHMENT_LINKED_MESH but is a mesh afterwards, so that
// renderers see it as one.
struct spAttachment {
    const char* name;
    spAttachmentType type;
    void (*dispose)(spAttachment* self);
};

void _spAttachment_init(spAttachment* self, const char* name, spAttachmentType type,
                        void (*dispose)(spAttachment* self));
void _spAttachment_deinit(spAttachment* self);
void spAttachment_dispose(spAttachment* self);
