#include "spine/spRegionAttachment.h"

#include "spine/spAllocator.h"
#include "spine/spBone.h"
#include "spine/spMath.h"
#include "spine/spSkeleton.h"

static void disposeRegion(spAttachment* attachment) {
    spRegionAttachment* self = (spRegionAttachment*)attachment;
    _spAttachment_deinit(attachment);
    SP_FREE(self->path);
    SP_FREE(self);
}

spRegionAttachment* spRegionAttachment_create(const char* name) {
    spRegionAttachment* self = SP_NEW(spRegionAttachment);
    _spAttachment_init(&self->super, name, SP_ATTACHMENT_REGION, disposeRegion);
    self->scaleX = 1;
    self->scaleY = 1;
    self->r = self->g = self->b = self->a = 1;
    return self;
}

void spRegionAttachment_setUVs(spRegionAttachment* self, float u, float v, float u2, float v2, int rotate) {
    float* uvs = self->uvs;
    if (rotate) {
        // Packed turned by 90 degrees: the image's top edge runs up the
        // left side of the packed rectangle.
        uvs[SP_VERTEX_X2] = u;  uvs[SP_VERTEX_Y2] = v2;
        uvs[SP_VERTEX_X3] = u;  uvs[SP_VERTEX_Y3] = v;
        uvs[SP_VERTEX_X4] = u2; uvs[SP_VERTEX_Y4] = v;
        uvs[SP_VERTEX_X1] = u2; uvs[SP_VERTEX_Y1] = v2;
    } else {
        uvs[SP_VERTEX_X1] = u;  uvs[SP_VERTEX_Y1] = v2;
        uvs[SP_VERTEX_X2] = u;  uvs[SP_VERTEX_Y2] = v;
        uvs[SP_VERTEX_X3] = u2; uvs[SP_VERTEX_Y3] = v;
        uvs[SP_VERTEX_X4] = u2; uvs[SP_VERTEX_Y4] = v2;
    }
}

void spRegionAttachment_updateOffset(spRegionAttachment* self) {
    // The trimmed image sits inside its original rectangle, which is centred
    // on the attachment's position and scaled to width x height.
    float regionScaleX = self->regionOriginalWidth > 0 ? self->width / self->regionOriginalWidth * self->scaleX : 0;
    float regionScaleY =
        self->regionOriginalHeight > 0 ? self->height / self->regionOriginalHeight * self->scaleY : 0;
    float left = -self->width / 2 * self->scaleX + self->regionOffsetX * regionScaleX;
    float bottom = -self->height / 2 * self->scaleY + self->regionOffsetY * regionScaleY;
    float right = left + self->regionWidth * regionScaleX;
    float top = bottom + self->regionHeight * regionScaleY;
    float cosine = spCosDeg(self->rotation), sine = spSinDeg(self->rotation);
    const float xs[4] = {left, left, right, right};
    const float ys[4] = {bottom, top, top, bottom};
    for (int i = 0; i < 4; i++) {
        self->offset[i * 2] = xs[i] * cosine - ys[i] * sine + self->x;
        self->offset[i * 2 + 1] = xs[i] * sine + ys[i] * cosine + self->y;
    }
}

void spRegionAttachment_computeWorldVertices(spRegionAttachment* self, spBone* bone, float* vertices) {
    float x = bone->skeleton->x + bone->worldX, y = bone->skeleton->y + bone->worldY;
    const float* offset = self->offset;
    for (int i = 0; i < 8; i += 2) {
        vertices[i] = offset[i] * bone->a + offset[i + 1] * bone->b + x;
        vertices[i + 1] = offset[i] * bone->c + offset[i + 1] * bone->d + y;
    }
}
