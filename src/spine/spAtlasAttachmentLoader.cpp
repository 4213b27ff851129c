#include "spine/spAtlasAttachmentLoader.h"

#include "spine/spAllocator.h"
#include "spine/spAtlas.h"
#include "spine/spBoundingBoxAttachment.h"
#include "spine/spMeshAttachment.h"
#include "spine/spPathAttachment.h"
#include "spine/spRegionAttachment.h"

static spAttachment* _spAtlasAttachmentLoader_createAttachment(spAttachmentLoader* loader, spSkin* skin,
                                                               spAttachmentType type, const char* name,
                                                               const char* path) {
    (void)skin;
    spAtlasAttachmentLoader* self = (spAtlasAttachmentLoader*)loader;
    switch (type) {
    case SP_ATTACHMENT_REGION: {
        spAtlasRegion* region = spAtlas_findRegion(self->atlas, path);
        if (!region) {
            _spAttachmentLoader_setError(loader, "Region not found: ", path);
            return nullptr;
        }
        spRegionAttachment* attachment = spRegionAttachment_create(name);
        attachment->rendererObject = region;
        spRegionAttachment_setUVs(attachment, region->u, region->v, region->u2, region->v2, region->rotate);
        attachment->regionOffsetX = region->offsetX;
        attachment->regionOffsetY = region->offsetY;
        attachment->regionWidth = region->width;
        attachment->regionHeight = region->height;
        attachment->regionOriginalWidth = region->originalWidth;
        attachment->regionOriginalHeight = region->originalHeight;
        return &attachment->super;
    }
    case SP_ATTACHMENT_MESH:
    case SP_ATTACHMENT_LINKED_MESH: {
        spAtlasRegion* region = spAtlas_findRegion(self->atlas, path);
        if (!region) {
            _spAttachmentLoader_setError(loader, "Region not found: ", path);
            return nullptr;
        }
        spMeshAttachment* attachment = spMeshAttachment_create(name);
        attachment->rendererObject = region;
        attachment->regionU = region->u;
        attachment->regionV = region->v;
        attachment->regionU2 = region->u2;
        attachment->regionV2 = region->v2;
        attachment->regionRotate = region->rotate;
        attachment->regionOffsetX = region->offsetX;
        attachment->regionOffsetY = region->offsetY;
        attachment->regionWidth = region->width;
        attachment->regionHeight = region->height;
        attachment->regionOriginalWidth = region->originalWidth;
        attachment->regionOriginalHeight = region->originalHeight;
        return &attachment->super.super;
    }
    case SP_ATTACHMENT_BOUNDING_BOX:
        return &spBoundingBoxAttachment_create(name)->super.super;
    case SP_ATTACHMENT_PATH:
        return &spPathAttachment_create(name)->super.super;
    default:
        _spAttachmentLoader_setUnknownTypeError(loader, type);
        return nullptr;
    }
}

static void disposeAtlasLoader(spAttachmentLoader* loader) {
    _spAttachmentLoader_deinit(loader);
    SP_FREE(loader);
}

spAtlasAttachmentLoader* spAtlasAttachmentLoader_create(spAtlas* atlas) {
    spAtlasAttachmentLoader* self = SP_NEW(spAtlasAttachmentLoader);
    _spAttachmentLoader_init(&self->super, _spAtlasAttachmentLoader_createAttachment, disposeAtlasLoader);
    self->atlas = atlas;
    return self;
}
