#pragma once

struct spBoneData;

enum spBlendMode { SP_BLEND_MODE_NORMAL, SP_BLEND_MODE_ADDITIVE, SP_BLEND_MODE_MULTIPLY, SP_BLEND_MODE_SCREEN };

// Setup state of one slot: the bone it hangs on, its colour and the
// attachment it shows at setup.
struct spSlotData {
    int index;
    const char* name;
    spBoneData* boneData;
    float r, g, b, a;
    const char* attachmentName;
    spBlendMode blendMode;
};

spSlotData* spSlotData_create(int index, const char* name, spBoneData* boneData);
void spSlotData_dispose(spSlotData* self);
void spSlotData_setAttachmentName(spSlotData* self, const char* attachmentName);
