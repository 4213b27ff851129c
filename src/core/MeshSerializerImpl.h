#pragma once

#include "core/Serializer.h"
#include "core/VertexElement.h"

#include <map>
#include <vector>

class Animation;
class Pose;
class VertexAnimationTrack;
class VertexData;
class ZuOgrePieceModel;
class ZuSubMesh;

// Reads one version of the mesh format into a piece model. Chunks nest: a
// reader handles the ids of its level and steps back over the header of any
// other id, which ends the level.
class MeshSerializerImpl : public Serializer {
public:
    MeshSerializerImpl();
    // False (logged) on a broken file; the model is then to be thrown away.
    bool importMesh(DataStream& stream, ZuOgrePieceModel* model);

    virtual void readSubMeshNameTable(DataStream& stream, ZuOgrePieceModel* model);
    virtual void readMesh(DataStream& stream, ZuOgrePieceModel* model);
    virtual void readSubMesh(DataStream& stream, ZuOgrePieceModel* model);
    virtual void readSubMeshOperation(DataStream& stream, ZuSubMesh* sub);
    virtual void readGeometry(DataStream& stream, VertexData* data);
    virtual void readGeometryVertexDeclaration(DataStream& stream, VertexData* data);
    virtual void readGeometryVertexElement(DataStream& stream, VertexData* data);
    virtual void readGeometryVertexBuffer(DataStream& stream, VertexData* data);
    virtual void readSkeletonLink(DataStream& stream, ZuOgrePieceModel* model);
    virtual void readSubMeshBoneAssignment(DataStream& stream, ZuSubMesh* sub);
    virtual void readBoundsInfo(DataStream& stream, ZuOgrePieceModel* model);
    virtual void readPoses(DataStream& stream, ZuOgrePieceModel* model);
    virtual void readPose(DataStream& stream, ZuOgrePieceModel* model);
    virtual void readAnimations(DataStream& stream, ZuOgrePieceModel* model);
    virtual void readAnimation(DataStream& stream, ZuOgrePieceModel* model);
    virtual void readAnimationTrack(DataStream& stream, Animation* animation, ZuOgrePieceModel* model);
    virtual void readPoseKeyFrame(DataStream& stream, VertexAnimationTrack* track, size_t poseCount);
    virtual void readMorphKeyFrame(DataStream& stream, VertexAnimationTrack* track);
    // Swaps a buffer's values element by element: floats as 4 bytes,
    // shorts as 2, bytes left alone.
    virtual void flipEndian(void* data, size_t vertexCount, size_t vertexSize,
                            const std::vector<VertexElement>& elements);

private:
    void readEdgeLists(DataStream& stream);
};
