#include "spine/spMeshAttachment.h"

#include "spine/spAllocator.h"

static void disposeMesh(spAttachment* attachment) {
    spMeshAttachment* self = (spMeshAttachment*)attachment;
    SP_FREE(self->path);
    SP_FREE(self->uvs);
    if (self->parentMesh) {
        // The geometry belongs to the parent.
        _spAttachment_deinit(attachment);
    } else {
        _spVertexAttachment_deinit(&self->super);
        SP_FREE(self->regionUVs);
        SP_FREE(self->triangles);
        SP_FREE(self->edges);
    }
    SP_FREE(self);
}

spMeshAttachment* spMeshAttachment_create(const char* name) {
    spMeshAttachment* self = SP_NEW(spMeshAttachment);
    _spVertexAttachment_init(&self->super, name, SP_ATTACHMENT_MESH, disposeMesh);
    self->r = self->g = self->b = self->a = 1;
    self->inheritDeform = 1;
    return self;
}

void spMeshAttachment_updateUVs(spMeshAttachment* self) {
    int length = self->super.worldVerticesLength;
    SP_FREE(self->uvs);
    self->uvs = nullptr;
    if (length <= 0 || !self->regionUVs) return;
    self->uvs = SP_MALLOC(float, length);
    float width = self->regionU2 - self->regionU, height = self->regionV2 - self->regionV;
    const float* regionUVs = self->regionUVs;
    for (int i = 0; i + 1 < length; i += 2) {
        if (self->regionRotate) {
            // Turned by 90 degrees in the page: x runs down the page's v axis.
            self->uvs[i] = self->regionU + regionUVs[i + 1] * width;
            self->uvs[i + 1] = self->regionV + height - regionUVs[i] * height;
        } else {
            self->uvs[i] = self->regionU + regionUVs[i] * width;
            self->uvs[i + 1] = self->regionV + regionUVs[i + 1] * height;
        }
    }
}

void spMeshAttachment_setParentMesh(spMeshAttachment* self, spMeshAttachment* parentMesh) {
    while (parentMesh && parentMesh->parentMesh) parentMesh = parentMesh->parentMesh;
    self->parentMesh = parentMesh;
    if (!parentMesh) return;
    self->super.bones = parentMesh->super.bones;
    self->super.bonesCount = parentMesh->super.bonesCount;
    self->super.vertices = parentMesh->super.vertices;
    self->super.verticesCount = parentMesh->super.verticesCount;
    self->super.worldVerticesLength = parentMesh->super.worldVerticesLength;
    self->regionUVs = parentMesh->regionUVs;
    self->triangles = parentMesh->triangles;
    self->trianglesCount = parentMesh->trianglesCount;
    self->hullLength = parentMesh->hullLength;
    self->edges = parentMesh->edges;
    self->edgesCount = parentMesh->edgesCount;
    self->width = parentMesh->width;
    self->height = parentMesh->height;
}

void spMeshAttachment_computeWorldVertices(spMeshAttachment* self, spSlot* slot, float* worldVertices) {
    spVertexAttachment_computeWorldVertices1(&self->super, 0, self->super.worldVerticesLength, slot, worldVertices,
                                             0);
}
