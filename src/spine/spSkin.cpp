#include "spine/spSkin.h"

#include "spine/spAllocator.h"
#include "spine/spAttachment.h"
#include "spine/spSkeleton.h"
#include "spine/spSlot.h"

#include <string.h>

spSkin* spSkin_create(const char* name) {
    spSkin* self = SP_NEW(spSkin);
    self->name = _spStrDup(name ? name : "");
    return self;
}

void spSkin_dispose(spSkin* self) {
    if (!self) return;
    spSkinEntry* entry = self->entries;
    while (entry) {
        spSkinEntry* next = entry->next;
        spAttachment_dispose(entry->attachment);
        SP_FREE(entry->name);
        SP_FREE(entry);
        entry = next;
    }
    SP_FREE(self->name);
    SP_FREE(self);
}

void spSkin_addAttachment(spSkin* self, int slotIndex, const char* name, spAttachment* attachment) {
    spSkinEntry* entry = SP_NEW(spSkinEntry);
    entry->slotIndex = slotIndex;
    entry->name = _spStrDup(name ? name : "");
    entry->attachment = attachment;
    entry->next = self->entries;
    self->entries = entry;
}

spAttachment* spSkin_getAttachment(const spSkin* self, int slotIndex, const char* name) {
    if (!self || !name) return nullptr;
    for (const spSkinEntry* entry = self->entries; entry; entry = entry->next)
        if (entry->slotIndex == slotIndex && strcmp(entry->name, name) == 0) return entry->attachment;
    return nullptr;
}

const char* spSkin_getAttachmentName(const spSkin* self, int slotIndex, int attachmentIndex) {
    if (!self) return nullptr;
    int i = 0;
    for (const spSkinEntry* entry = self->entries; entry; entry = entry->next) {
        if (entry->slotIndex != slotIndex) continue;
        if (i == attachmentIndex) return entry->name;
        i++;
    }
    return nullptr;
}

void spSkin_attachAll(const spSkin* self, spSkeleton* skeleton, const spSkin* oldSkin) {
    if (!oldSkin) return;
    for (const spSkinEntry* entry = oldSkin->entries; entry; entry = entry->next) {
        if (entry->slotIndex < 0 || entry->slotIndex >= skeleton->slotsCount) continue;
        spSlot* slot = skeleton->slots[entry->slotIndex];
        if (slot->attachment != entry->attachment) continue;
        spAttachment* attachment = spSkin_getAttachment(self, entry->slotIndex, entry->name);
        if (attachment) spSlot_setAttachment(slot, attachment);
    }
}
