#pragma once

#include "spine/spVertexAttachment.h"

// A textured triangle mesh, optionally weighted to several bones. A linked
// mesh shares the geometry of its parent mesh and has its own region.
struct spMeshAttachment {
    spVertexAttachment super;

    void* rendererObject;  // the atlas region
    int regionOffsetX, regionOffsetY;
    int regionWidth, regionHeight;
    int regionOriginalWidth, regionOriginalHeight;
    float regionU, regionV, regionU2, regionV2;
    int regionRotate;

    const char* path;

    float* regionUVs;  // 0..1 within the region, worldVerticesLength floats
    float* uvs;        // in the page, computed by spMeshAttachment_updateUVs

    int trianglesCount;
    unsigned short* triangles;

    float r, g, b, a;

    int hullLength;
    int edgesCount;
    int* edges;
    float width, height;

    spMeshAttachment* parentMesh;  // set for a linked mesh
    int inheritDeform;             // a linked mesh follows its parent's deform keys
};

spMeshAttachment* spMeshAttachment_create(const char* name);
void spMeshAttachment_updateUVs(spMeshAttachment* self);
// Shares the parent's geometry (bones, vertices, region uvs, triangles, hull,
// edges); the parent must outlive this mesh.
void spMeshAttachment_setParentMesh(spMeshAttachment* self, spMeshAttachment* parentMesh);
void spMeshAttachment_computeWorldVertices(spMeshAttachment* self, spSlot* slot, float* worldVertices);
