#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

// A vertex buffer in processor memory: vertex size times count bytes, malloc'd.
class HardwareVertexBuffer {
public:
    HardwareVertexBuffer(uint32_t vertexSize, uint32_t vertexCount)
        : vertexSize(vertexSize), vertexCount(vertexCount),
          data(static_cast<uint8_t*>(std::calloc(sizeBytes() ? sizeBytes() : 1, 1))) {}
    ~HardwareVertexBuffer() { std::free(data); }
    HardwareVertexBuffer(const HardwareVertexBuffer&) = delete;
    HardwareVertexBuffer& operator=(const HardwareVertexBuffer&) = delete;

    HardwareVertexBuffer* clone() const {
        HardwareVertexBuffer* copy = new HardwareVertexBuffer(vertexSize, vertexCount);
        if (copy->data && data) std::memcpy(copy->data, data, sizeBytes());
        return copy;
    }

    uint32_t getVertexSize() const { return vertexSize; }
    uint32_t getNumVertices() const { return vertexCount; }
    size_t sizeBytes() const { return static_cast<size_t>(vertexSize) * vertexCount; }
    uint8_t* getData() { return data; }
    const uint8_t* getData() const { return data; }

private:
    uint32_t vertexSize;
    uint32_t vertexCount;
    uint8_t* data;
};
