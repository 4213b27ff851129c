#pragma once

struct spAttachment;
struct spSkeleton;

// One attachment of a skin, keyed by slot index and attachment name.
struct spSkinEntry {
    int slotIndex;
    const char* name;
    spAttachment* attachment;
    spSkinEntry* next;
};

// A named set of attachments. The skin owns its attachments.
struct spSkin {
    const char* name;
    spSkinEntry* entries;  // newest first
};

spSkin* spSkin_create(const char* name);
void spSkin_dispose(spSkin* self);

// Takes ownership of the attachment. A later entry of the same key hides an
// earlier one.
void spSkin_addAttachment(spSkin* self, int slotIndex, const char* name, spAttachment* attachment);
spAttachment* spSkin_getAttachment(const spSkin* self, int slotIndex, const char* name);
// Name of the attachmentIndex-th entry for the slot, or null.
const char* spSkin_getAttachmentName(const spSkin* self, int slotIndex, int attachmentIndex);
// For each slot of the skeleton showing an attachment of oldSkin, shows this
// skin's attachment of the same name instead, where there is one.
void spSkin_attachAll(const spSkin* self, spSkeleton* skeleton, const spSkin* oldSkin);
