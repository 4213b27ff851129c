#include "core/VertexData.h"

VertexData* VertexData::clone(bool copyBuffers) const {
    VertexData* copy = new VertexData();
    copy->vertexStart = vertexStart;
    copy->vertexCount = vertexCount;
    copy->vertexDeclaration = vertexDeclaration;
    for (const auto& binding : vertexBufferBinding.getBindings()) {
        VertexBufferBinding::BufferPtr buffer = binding.second;
        if (copyBuffers && buffer) buffer.reset(buffer->clone());
        copy->vertexBufferBinding.setBinding(binding.first, buffer);
    }
    return copy;
}
