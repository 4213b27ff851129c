#pragma once

#include "core/VertexBufferBinding.h"
#include "core/VertexDeclaration.h"

// One vertex set: counts, element declaration and bound buffers.
class VertexData {
public:
    uint32_t vertexStart = 0;
    uint32_t vertexCount = 0;
    VertexDeclaration vertexDeclaration;
    VertexBufferBinding vertexBufferBinding;

    // Same counts and elements; with copyBuffers each buffer is duplicated,
    // otherwise the buffers are shared.
    VertexData* clone(bool copyBuffers = true) const;
};
