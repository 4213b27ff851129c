#pragma once

#include "core/KeyFrame.h"

#include <cstddef>
#include <vector>

// A whole vertex set at one moment: 3 floats a vertex, or 6 with normals.
class VertexMorphKeyFrame : public KeyFrame {
public:
    VertexMorphKeyFrame(const AnimationTrack* parent, float time) : KeyFrame(parent, time) {}
    // Grows only.
    void resizeVertexBuffer(size_t bytes) {
        if (bytes > buffer.size() * sizeof(float)) buffer.resize((bytes + 3) / 4);
    }
    // Copies only when the size is the capacity.
    void setVertexBuffer(const float* data, size_t bytes) {
        if (bytes == buffer.size() * sizeof(float)) buffer.assign(data, data + bytes / 4);
    }
    const float* getVertexBuffer() const { return buffer.data(); }
    size_t getVertexBufferBytes() const { return buffer.size() * sizeof(float); }
    bool includesNormals = false;

private:
    std::vector<float> buffer;
};
