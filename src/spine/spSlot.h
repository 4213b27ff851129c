#pragma once

struct spSlotData;
struct spBone;
struct spAttachment;

// A slot of one skeleton: its colour, the attachment it shows and that
// attachment's deformed vertices.
struct spSlot {
    spSlotData* data;
    spBone* bone;
    float r, g, b, a;
    spAttachment* attachment;
    float attachmentTime;  // skeleton time when the attachment was set

    // Deformed vertices of the current attachment; grown when needed and
    // kept. A count of 0 means the setup vertices are used.
    int attachmentVerticesCapacity;
    int attachmentVerticesCount;
    float* attachmentVertices;
};

spSlot* spSlot_create(spSlotData* data, spBone* bone);
void spSlot_dispose(spSlot* self);

// Setting a different attachment restarts its time and drops the deform.
void spSlot_setAttachment(spSlot* self, spAttachment* attachment);
void spSlot_setAttachmentTime(spSlot* self, float time);
float spSlot_getAttachmentTime(const spSlot* self);
void spSlot_setToSetupPose(spSlot* self);
