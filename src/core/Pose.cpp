#include "core/Pose.h"

namespace {
const float kTiny = 0.000001f;
}

void Pose::addVertex(uint32_t index, const ZuVec3& offset) {
    if (offset.length() < kTiny) return;
    offsets[index] = offset;
}

void Pose::addVertex(uint32_t index, const ZuVec3& offset, const ZuVec3& normal) {
    if (offset.length() < kTiny && normal.length() < kTiny) return;
    offsets[index] = offset;
    normals[index] = normal;
}

void Pose::removeVertex(uint32_t index) {
    offsets.erase(index);
    normals.erase(index);
}

void Pose::clearVertices() {
    offsets.clear();
    normals.clear();
}
