#include "core/MeshSerializerImpl.h"

#include "core/Animation.h"
#include "core/Pose.h"
#include "core/VertexData.h"
#include "core/ZuOgrePieceModel.h"
#include "core/ZuSubMesh.h"

#include <cstring>

namespace {
enum : uint16_t {
    M_HEADER = 0x1000,
    M_MESH = 0x3000,
    M_SUBMESH = 0x4000,
    M_SUBMESH_OPERATION = 0x4010,
    M_SUBMESH_BONE_ASSIGNMENT = 0x4100,
    M_SUBMESH_TEXTURE_ALIAS = 0x4200,
    M_GEOMETRY = 0x5000,
    M_GEOMETRY_VERTEX_DECLARATION = 0x5100,
    M_GEOMETRY_VERTEX_ELEMENT = 0x5110,
    M_GEOMETRY_VERTEX_BUFFER = 0x5200,
    M_MESH_SKELETON_LINK = 0x6000,
    M_MESH_BONE_ASSIGNMENT = 0x7000,
    M_MESH_LOD = 0x8000,
    M_MESH_BOUNDS = 0x9000,
    M_SUBMESH_NAME_TABLE = 0xA000,
    M_SUBMESH_NAME_TABLE_ELEMENT = 0xA100,
    M_EDGE_LISTS = 0xB000,
    M_EDGE_LIST_LOD = 0xB100,
    M_POSES = 0xC000,
    M_POSE = 0xC100,
    M_POSE_VERTEX = 0xC111,
    M_ANIMATIONS = 0xD000,
    M_ANIMATION = 0xD100,
    M_ANIMATION_TRACK = 0xD110,
    M_ANIMATION_MORPH_KEYFRAME = 0xD111,
    M_ANIMATION_POSE_KEYFRAME = 0xD112,
    M_ANIMATION_POSE_REF = 0xD113,
    M_TABLE_EXTREMES = 0xE000,
};
} // namespace

MeshSerializerImpl::MeshSerializerImpl() {
    version = "[MeshSerializer_v1.8]";
    kind = "mesh";
}

bool MeshSerializerImpl::importMesh(DataStream& stream, ZuOgrePieceModel* model) {
    determineEndianness(stream);
    uint16_t id = 0;
    readShorts(stream, &id, 1);
    readString(stream); // neither a wrong id nor a wrong version stops it here
    bool found = false;
    while (!broken && remaining(stream) > 0) {
        id = readChunk(stream);
        if (id == M_MESH) {
            readMesh(stream, model);
            found = true;
        }
    }
    // A file with no mesh in it is of no use to any node.
    if (!found) refuse(stream, "no mesh chunk");
    return !broken;
}

void MeshSerializerImpl::readMesh(DataStream& stream, ZuOgrePieceModel* model) {
    bool skeletallyAnimated = false;
    readBools(stream, &skeletallyAnimated, 1);
    while (uint16_t id = peekLevelChunk(stream)) {
        switch (id) {
        case M_SUBMESH: readSubMesh(stream, model); break;
        case M_MESH_SKELETON_LINK: readSkeletonLink(stream, model); break;
        case M_MESH_BOUNDS: readBoundsInfo(stream, model); break;
        case M_SUBMESH_NAME_TABLE: readSubMeshNameTable(stream, model); break;
        case M_EDGE_LISTS: readEdgeLists(stream); break;
        case M_POSES: readPoses(stream, model); break;
        case M_ANIMATIONS: readAnimations(stream, model); break;
        case M_GEOMETRY:
        case M_MESH_BONE_ASSIGNMENT:
        case M_MESH_LOD:
        case M_TABLE_EXTREMES:
            // Shared vertices, mesh-level bones, LOD and extremes are not served.
            refuse(stream, "mesh-level shared geometry, bone assignments or LOD are not supported");
            return;
        default:
            backToChunkStart(stream);
            return;
        }
    }
}

void MeshSerializerImpl::readSubMesh(DataStream& stream, ZuOgrePieceModel* model) {
    ZuSubMesh* sub = model->CreateSubMesh();
    sub->materialName = readString(stream);
    bool shared = false;
    uint32_t indexCount = 0;
    bool idx32 = false;
    if (!readBools(stream, &shared, 1) || !readInts(stream, &indexCount, 1) || !readBools(stream, &idx32, 1))
        return;
    sub->useSharedVertices = shared;
    sub->indexData.indexCount = indexCount;
    sub->indexData.use32Bit = idx32;
    if (indexCount > 0) {
        if (!fits(stream, indexCount, idx32 ? 4 : 2, "index count beyond the data")) return;
        if (idx32) {
            sub->indexData.indices32.resize(indexCount);
            if (!readInts(stream, sub->indexData.indices32.data(), indexCount)) return;
        } else {
            sub->indexData.indices16.resize(indexCount);
            if (!readShorts(stream, sub->indexData.indices16.data(), indexCount)) return;
        }
    }
    if (shared) {
        refuse(stream, "a submesh on shared vertices is not supported");
        return;
    }
    if (!readChunk(stream)) return; // the geometry chunk, whatever its id
    sub->vertexData.reset(new VertexData());
    readGeometry(stream, sub->vertexData.get());
    if (broken) return;
    uint32_t vertexCount = sub->vertexData->vertexCount;
    for (uint32_t i = 0; i < indexCount; ++i) {
        if (sub->indexData.getIndex(i) >= vertexCount) {
            refuse(stream, "an index past the vertices");
            return;
        }
    }
    sub->workingVertexData.reset(sub->vertexData->clone(true));
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id == M_SUBMESH_OPERATION) {
            readSubMeshOperation(stream, sub);
        } else if (id == M_SUBMESH_BONE_ASSIGNMENT) {
            readSubMeshBoneAssignment(stream, sub);
        } else if (id == M_SUBMESH_TEXTURE_ALIAS) {
            // accepted, no reader
        } else {
            backToChunkStart(stream);
            break;
        }
    }
}

void MeshSerializerImpl::readSubMeshOperation(DataStream& stream, ZuSubMesh* sub) {
    uint16_t op = 0;
    if (readShorts(stream, &op, 1)) sub->operationType = op;
}

void MeshSerializerImpl::readGeometry(DataStream& stream, VertexData* data) {
    data->vertexStart = 0;
    if (!readInts(stream, &data->vertexCount, 1)) return;
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id == M_GEOMETRY_VERTEX_DECLARATION) {
            readGeometryVertexDeclaration(stream, data);
        } else if (id == M_GEOMETRY_VERTEX_BUFFER) {
            readGeometryVertexBuffer(stream, data);
        } else {
            backToChunkStart(stream);
            break;
        }
    }
}

void MeshSerializerImpl::readGeometryVertexDeclaration(DataStream& stream, VertexData* data) {
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id != M_GEOMETRY_VERTEX_ELEMENT) {
            backToChunkStart(stream);
            break;
        }
        readGeometryVertexElement(stream, data);
    }
}

void MeshSerializerImpl::readGeometryVertexElement(DataStream& stream, VertexData* data) {
    uint16_t v[5];
    if (!readShorts(stream, v, 5)) return;
    // source, type, semantic, offset, index
    data->vertexDeclaration.addElement(v[0], v[3], v[1], v[2], v[4]);
}

void MeshSerializerImpl::readGeometryVertexBuffer(DataStream& stream, VertexData* data) {
    uint16_t bindIndex = 0, vertexSize = 0;
    if (!readShorts(stream, &bindIndex, 1) || !readShorts(stream, &vertexSize, 1)) return;
    if (!readChunk(stream)) return; // the buffer data header, whatever its id
    if (vertexSize != data->vertexDeclaration.getVertexSize(bindIndex)) {
        refuse(stream, "vertex size disagrees with the declaration");
        return;
    }
    for (const VertexElement& e : data->vertexDeclaration.findElementsBySource(bindIndex)) {
        if (e.getSize() == 0 || e.offset + e.getSize() > vertexSize) {
            refuse(stream, "an element lies outside its vertex");
            return;
        }
    }
    if (!fits(stream, data->vertexCount, vertexSize, "vertex count beyond the data")) return;
    auto buffer = std::make_shared<HardwareVertexBuffer>(vertexSize, data->vertexCount);
    size_t bytes = buffer->sizeBytes();
    if (bytes && stream.read(buffer->getData(), bytes) != bytes) {
        refuse(stream, "vertex data cut off");
        return;
    }
    if (flip) flipEndian(buffer->getData(), data->vertexCount, vertexSize,
                         data->vertexDeclaration.findElementsBySource(bindIndex));
    data->vertexBufferBinding.setBinding(bindIndex, buffer);
}

void MeshSerializerImpl::flipEndian(void* data, size_t vertexCount, size_t vertexSize,
                                    const std::vector<VertexElement>& elements) {
    auto* base = static_cast<uint8_t*>(data);
    for (size_t v = 0; v < vertexCount; ++v, base += vertexSize) {
        for (const VertexElement& e : elements) {
            uint16_t baseType = VertexElement::getBaseType(e.type);
            size_t width = baseType == VET_FLOAT1 ? 4 : baseType == VET_SHORT1 ? 2 : 0;
            if (!width) continue;
            Serializer::flipEndian(base + e.offset, width, VertexElement::getTypeCount(e.type));
        }
    }
}

void MeshSerializerImpl::readSkeletonLink(DataStream& stream, ZuOgrePieceModel* model) {
    std::string name = readString(stream);
    const std::string& path = stream.getName();
    size_t slash = path.find_last_of('/');
    std::string dir = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    if (!model->setSkeletonName(dir + name)) refuse(stream, "the linked skeleton can't be read");
}

void MeshSerializerImpl::readSubMeshBoneAssignment(DataStream& stream, ZuSubMesh* sub) {
    VertexBoneAssignment_s a{0, 0, 0.0f};
    if (!readInts(stream, &a.vertexIndex, 1) || !readShorts(stream, &a.boneIndex, 1) ||
        !readFloats(stream, &a.weight, 1))
        return;
    if (!sub->vertexData || a.vertexIndex >= sub->vertexData->vertexCount) {
        refuse(stream, "a bone assignment names no vertex");
        return;
    }
    sub->addBoneAssignment(a);
}

void MeshSerializerImpl::readBoundsInfo(DataStream& stream, ZuOgrePieceModel* model) {
    ZuBox box;
    float radius = 0.0f;
    if (!readObject(stream, box.minimum) || !readObject(stream, box.maximum) || !readFloats(stream, &radius, 1))
        return;
    model->setBounds(box);
}

void MeshSerializerImpl::readSubMeshNameTable(DataStream& stream, ZuOgrePieceModel* model) {
    std::map<uint16_t, std::string> names;
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id != M_SUBMESH_NAME_TABLE_ELEMENT) {
            backToChunkStart(stream);
            break;
        }
        uint16_t index = 0;
        if (!readShorts(stream, &index, 1)) break;
        names[index] = readString(stream);
    }
    for (const auto& entry : names) model->nameSubMesh(entry.second, entry.first);
}

void MeshSerializerImpl::readEdgeLists(DataStream& stream) {
    // Edge lists are read to get past them and dropped.
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id != M_EDGE_LIST_LOD) {
            backToChunkStart(stream);
            return;
        }
        uint16_t lod = 0;
        bool manual = false;
        if (!readShorts(stream, &lod, 1) || !readBools(stream, &manual, 1)) return;
        if (manual) continue;
        bool closed = false;
        uint32_t counts[2] = {0, 0};
        if (!readBools(stream, &closed, 1) || !readInts(stream, counts, 2)) return;
        if (!fits(stream, counts[0], 4 * 8 + 16, "triangle count beyond the data")) return;
        stream.skip(static_cast<long>(counts[0]) * (4 * 8 + 16));
        for (uint32_t g = 0; g < counts[1]; ++g) {
            if (!readChunk(stream)) return;
            uint32_t header[4];
            if (!readInts(stream, header, 4)) return;
            if (!fits(stream, header[3], 4 * 6 + 1, "edge count beyond the data")) return;
            stream.skip(static_cast<long>(header[3]) * (4 * 6 + 1));
        }
    }
}

void MeshSerializerImpl::readPoses(DataStream& stream, ZuOgrePieceModel* model) {
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id != M_POSE) {
            backToChunkStart(stream);
            return;
        }
        readPose(stream, model);
    }
}

void MeshSerializerImpl::readPose(DataStream& stream, ZuOgrePieceModel* model) {
    std::string name = readString(stream);
    uint16_t target = 0;
    bool normals = false;
    if (!readShorts(stream, &target, 1) || !readBools(stream, &normals, 1)) return;
    if (target == 0 || target > model->getSubMeshList().size()) {
        refuse(stream, "a pose targets no submesh");
        return;
    }
    Pose* pose = model->CreatePose(target, name);
    uint32_t vertexCount = model->getSubMesh(target - 1u)->vertexData->vertexCount;
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id != M_POSE_VERTEX) {
            backToChunkStart(stream);
            return;
        }
        uint32_t vertex = 0;
        ZuVec3 offset, normal;
        if (!readInts(stream, &vertex, 1) || !readObject(stream, offset)) return;
        if (normals && !readObject(stream, normal)) return;
        if (vertex >= vertexCount) {
            refuse(stream, "a pose moves a vertex past the submesh");
            return;
        }
        if (normals) pose->addVertex(vertex, offset, normal);
        else pose->addVertex(vertex, offset);
    }
}

void MeshSerializerImpl::readAnimations(DataStream& stream, ZuOgrePieceModel* model) {
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id != M_ANIMATION) {
            backToChunkStart(stream);
            return;
        }
        readAnimation(stream, model);
    }
}

void MeshSerializerImpl::readAnimation(DataStream& stream, ZuOgrePieceModel* model) {
    std::string name = readString(stream);
    float length = 0.0f;
    if (!readFloats(stream, &length, 1)) return;
    Animation* animation = model->CreateAnimation(name, length);
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id != M_ANIMATION_TRACK) {
            backToChunkStart(stream);
            return;
        }
        readAnimationTrack(stream, animation, model);
    }
}

void MeshSerializerImpl::readAnimationTrack(DataStream& stream, Animation* animation, ZuOgrePieceModel* model) {
    uint16_t type = 0, handle = 0;
    if (!readShorts(stream, &type, 1) || !readShorts(stream, &handle, 1)) return;
    VertexData* data = model->getVertexDataByTrackHandle(handle);
    if (!data || (type != VAT_MORPH && type != VAT_POSE)) {
        refuse(stream, "a vertex track names no submesh or no known type");
        return;
    }
    VertexAnimationTrack* track = animation->createVertexTrack(handle, data, static_cast<VertexAnimationType>(type));
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id == M_ANIMATION_MORPH_KEYFRAME && type == VAT_MORPH) {
            readMorphKeyFrame(stream, track);
        } else if (id == M_ANIMATION_POSE_KEYFRAME && type == VAT_POSE) {
            readPoseKeyFrame(stream, track, model->getPoseList().size());
        } else if (id == M_ANIMATION_MORPH_KEYFRAME || id == M_ANIMATION_POSE_KEYFRAME) {
            refuse(stream, "a key frame of the other kind than its track");
            return;
        } else {
            backToChunkStart(stream);
            return;
        }
    }
}

void MeshSerializerImpl::readMorphKeyFrame(DataStream& stream, VertexAnimationTrack* track) {
    float time = 0.0f;
    bool normals = false;
    if (!readFloats(stream, &time, 1) || !readBools(stream, &normals, 1)) return;
    size_t floats = static_cast<size_t>(track->getAssociatedVertexData()->vertexCount) * (normals ? 6 : 3);
    if (!fits(stream, floats, 4, "morph frame beyond the data")) return;
    VertexMorphKeyFrame* frame = track->createVertexMorphKeyFrame(time);
    frame->includesNormals = normals;
    std::vector<float> values(floats);
    if (!readFloats(stream, values.data(), floats)) return;
    frame->resizeVertexBuffer(floats * sizeof(float));
    frame->setVertexBuffer(values.data(), floats * sizeof(float));
}

void MeshSerializerImpl::readPoseKeyFrame(DataStream& stream, VertexAnimationTrack* track, size_t poseCount) {
    float time = 0.0f;
    if (!readFloats(stream, &time, 1)) return;
    VertexPoseKeyFrame* frame = track->createVertexPoseKeyFrame(time);
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id != M_ANIMATION_POSE_REF) {
            backToChunkStart(stream);
            return;
        }
        uint16_t poseIndex = 0;
        float influence = 0.0f;
        if (!readShorts(stream, &poseIndex, 1) || !readFloats(stream, &influence, 1)) return;
        if (poseIndex >= poseCount) {
            refuse(stream, "a pose reference past the pose list");
            return;
        }
        frame->addPoseReference(poseIndex, influence);
    }
}
