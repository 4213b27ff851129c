#include "core/ZuOgreAnimojiMesh.h"

#include "platform/ZuLog.h"

#include <GLES2/gl2.h>

#include <cstring>

ZuOgreAnimojiMesh::~ZuOgreAnimojiMesh() {
    for (Extra* extra : {&bone, &boneWeight, &morph})
        if (extra->id) glDeleteBuffers(1, &extra->id);
}

void ZuOgreAnimojiMesh::stage(Extra& extra, const void* data, int bytes) {
    if (!data || bytes <= 0) {
        QZLOGW("ZuOgreAnimojiMesh: no data (%d bytes) refused", bytes);
        return;
    }
    extra.state = bytes > extra.glBytes ? 3 : 2;
    extra.data.assign(static_cast<const unsigned char*>(data), static_cast<const unsigned char*>(data) + bytes);
}

void ZuOgreAnimojiMesh::setVertexBufferLength(int bytes) {
    size_t floats = bytes > 0 ? static_cast<size_t>(bytes) / sizeof(float) : 0;
    if (floats != scratch.size()) scratch.assign(floats, 0.0f);
}

void ZuOgreAnimojiMesh::upload(Extra& extra, unsigned location, int components) {
    if (extra.data.empty()) return;
    if (!extra.id) glGenBuffers(1, &extra.id);
    glBindBuffer(GL_ARRAY_BUFFER, extra.id);
    int bytes = static_cast<int>(extra.data.size());
    if (extra.state == 3 || bytes > extra.glBytes) {
        glBufferData(GL_ARRAY_BUFFER, bytes, extra.data.data(), vertexPool);
        extra.glBytes = bytes;
    } else if (extra.state == 2) {
        glBufferSubData(GL_ARRAY_BUFFER, 0, bytes, extra.data.data());
    }
    extra.state = 1;
    enableAttribute(location, components, GL_FLOAT, 0, 0);
    int count = extra.glBytes / (components * 4);
    if (drawableVertices < 0 || count < drawableVertices) drawableVertices = count;
}

void ZuOgreAnimojiMesh::uploadData() {
    ZuRenderMeshDvid::uploadData();
    if (vertexType & VF_BONE_ID) upload(bone, 3, 4);
    if (vertexType & VF_BONE_WEIGHT) upload(boneWeight, 4, 4);
    if (vertexType & VF_MORPH_ARRAY) upload(morph, 2, 3);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}
