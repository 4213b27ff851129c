#pragma once

#include "core/IndexData.h"

#include <map>
#include <memory>
#include <string>

class VertexData;
class ZuOgrePieceModel;
class ZuTexture;

struct VertexBoneAssignment_s {
    uint32_t vertexIndex;
    uint16_t boneIndex;
    float weight;
};

// One submesh of a piece model: its indices, the vertex data as read, a
// working copy that animations change, and the bone assignments.
class ZuSubMesh {
public:
    using BoneAssignments = std::multimap<uint32_t, VertexBoneAssignment_s>;

    explicit ZuSubMesh(ZuOgrePieceModel* parent) : parent(parent) {}
    ~ZuSubMesh();
    ZuSubMesh(const ZuSubMesh&) = delete;
    ZuSubMesh& operator=(const ZuSubMesh&) = delete;

    void addBoneAssignment(const VertexBoneAssignment_s& assignment) {
        boneAssignments.emplace(assignment.vertexIndex, assignment);
    }
    const BoneAssignments& getBoneAssignments() const { return boneAssignments; }
    // Up to four weights a vertex, summing to 1, in a blend buffer of 4 bone
    // index bytes and 4 float weights; the working data is cloned afresh.
    void _compileBoneAssignments();
    // The working data again as the data read, so that poses don't add up.
    void resetWorkingData();

    // The texture of the material name in the model's map, or null.
    ZuTexture* getTexture() const;

    // Keeps the most weighted four of each vertex and makes them sum to 1;
    // returns the largest count found, at most 4.
    static uint16_t rationaliseBoneAssignments(uint32_t vertexCount, BoneAssignments& assignments);

    ZuOgrePieceModel* parent;
    std::string materialName;
    bool useSharedVertices = false;
    uint16_t operationType = 4;
    IndexData indexData;
    std::unique_ptr<VertexData> vertexData;        // as read
    std::unique_ptr<VertexData> workingVertexData; // what animations change

private:
    BoneAssignments boneAssignments;
};
