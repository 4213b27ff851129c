#pragma once

#include "render/math/ZuVec3.h"

#include <cstdint>
#include <map>
#include <string>

// A blend shape: offsets (and optionally normals) of some vertices of one
// vertex set. Target 0 is the shared vertices, n the vertices of submesh n - 1.
class Pose {
public:
    using VertexOffsetMap = std::map<uint32_t, ZuVec3>;

    Pose(uint16_t target, const std::string& name) : target(target), name(name) {}

    // Offsets shorter than 0.000001 store nothing.
    void addVertex(uint32_t index, const ZuVec3& offset);
    void addVertex(uint32_t index, const ZuVec3& offset, const ZuVec3& normal);
    void removeVertex(uint32_t index);
    void clearVertices();

    const VertexOffsetMap& getVertexOffsets() const { return offsets; }
    const VertexOffsetMap& getNormals() const { return normals; }
    uint16_t getTarget() const { return target; }
    const std::string& getName() const { return name; }
    bool getIncludesNormals() const { return !normals.empty(); }
    bool animated = true;

private:
    uint16_t target;
    std::string name;
    VertexOffsetMap offsets;
    VertexOffsetMap normals;
};
