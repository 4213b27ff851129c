// Feeds arbitrary bytes to the skeleton reader. Whatever reads is then
// instantiated, animated, mixed and skinned, so that data the reader accepts
// is also safe to pose.
#include "platform/ZuLog.h"
#include "spine/spRuntime.h"

#include <stddef.h>
#include <stdint.h>

namespace {

// Accepts every path: region and mesh attachments get a whole-page region,
// so fuzzed names reach the rest of the reader instead of stopping at the
// atlas lookup.
spAttachment* createAny(spAttachmentLoader* loader, spSkin* skin, spAttachmentType type, const char* name,
                        const char* path) {
    switch (type) {
    case SP_ATTACHMENT_REGION: {
        spRegionAttachment* region = spRegionAttachment_create(name);
        spRegionAttachment_setUVs(region, 0, 0, 1, 1, path[0] & 1);
        region->regionWidth = region->regionHeight = 16;
        region->regionOriginalWidth = region->regionOriginalHeight = 16;
        return &region->super;
    }
    case SP_ATTACHMENT_MESH:
    case SP_ATTACHMENT_LINKED_MESH: {
        spMeshAttachment* mesh = spMeshAttachment_create(name);
        mesh->regionU2 = mesh->regionV2 = 1;
        mesh->regionRotate = path[0] & 1;
        return &mesh->super.super;
    }
    case SP_ATTACHMENT_BOUNDING_BOX:
        return &spBoundingBoxAttachment_create(name)->super.super;
    case SP_ATTACHMENT_PATH:
        return &spPathAttachment_create(name)->super.super;
    }
    return nullptr;
}

void disposeLoader(spAttachmentLoader* loader) {
    _spAttachmentLoader_deinit(loader);
}

void drawAll(spSkeleton* skeleton, float* vertices, int capacity) {
    for (int i = 0; i < skeleton->slotsCount; i++) {
        spSlot* slot = skeleton->drawOrder[i];
        spAttachment* attachment = slot->attachment;
        if (!attachment) continue;
        if (attachment->type == SP_ATTACHMENT_REGION) {
            spRegionAttachment_computeWorldVertices((spRegionAttachment*)attachment, slot->bone, vertices);
        } else {
            spVertexAttachment* vertexAttachment = (spVertexAttachment*)attachment;
            if (vertexAttachment->worldVerticesLength <= capacity)
                spVertexAttachment_computeWorldVertices(vertexAttachment, slot, vertices);
            if (attachment->type == SP_ATTACHMENT_MESH) {
                // What a renderer reads: every triangle index names a vertex.
                spMeshAttachment* mesh = (spMeshAttachment*)attachment;
                int vertexCount = mesh->super.worldVerticesLength / 2;
                for (int t = 0; t < mesh->trianglesCount; t++)
                    if (mesh->triangles[t] >= vertexCount) __builtin_trap();
            }
        }
    }
}

void exercise(spSkeletonData* data) {
    static float vertices[4096];
    spSkeleton* skeleton = spSkeleton_create(data);
    for (int s = -1; s < data->skinsCount && s < 3; s++) {
        spSkeleton_setSkin(skeleton, s < 0 ? nullptr : data->skins[s]);
        spSkeleton_setToSetupPose(skeleton);
        spSkeleton_updateWorldTransform(skeleton);
        drawAll(skeleton, vertices, 4096);
    }

    spAnimationStateData* stateData = spAnimationStateData_create(data);
    stateData->defaultMix = 0.1f;
    spAnimationState* state = spAnimationState_create(stateData);
    int animations = data->animationsCount < 6 ? data->animationsCount : 6;
    for (int a = 0; a < animations; a++) {
        spAnimation* animation = data->animations[a];
        spAnimationState_setAnimation(state, a % 2, animation, a % 3 != 0);
        spAnimationState_addAnimation(state, 2, animation, 0, 0);
        for (int frame = 0; frame < 6; frame++) {
            spAnimationState_update(state, frame == 3 ? 1.7f : 0.13f);
            spAnimationState_apply(state, skeleton);
            spSkeleton_updateWorldTransform(skeleton);
            drawAll(skeleton, vertices, 4096);
        }
        spEvent* events[256];
        int count = 0;
        if (spAnimation_maxFiredEvents(animation) <= 256)
            spAnimation_mix(animation, skeleton, animation->duration * 0.75f, 0.25f, 1, events, &count, 0.5f);
    }
    spAnimationState_percent(state, 0.5f);
    spAnimationState_apply(state, skeleton);
    spAnimationState_clearTracks(state);
    spAnimationState_dispose(state);
    spAnimationStateData_dispose(stateData);
    spSkeleton_dispose(skeleton);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    static bool quiet = (ZuLog::setLevel(ZU_LOG_SILENT), true);
    (void)quiet;
    if (size > (1 << 20)) return 0;
    spAttachmentLoader loader = {};
    _spAttachmentLoader_init(&loader, createAny, disposeLoader);
    spSkeletonJson* json = spSkeletonJson_createWithLoader(&loader);
    json->scale = size % 3 == 0 ? 0.5f : 1;
    spSkeletonData* data = spSkeletonJson_readSkeletonDataWithLength(json, (const char*)bytes, (int)size);
    if (data) {
        exercise(data);
        spSkeletonData_dispose(data);
    }
    spSkeletonJson_dispose(json);
    spAttachmentLoader_dispose(&loader);
    return 0;
}
