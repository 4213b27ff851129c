#include "core/MeshSerializer.h"

#include "platform/ZuLog.h"

MeshSerializer::MeshSerializer() {
    kind = "mesh";
    versions.push_back({MESH_VERSION_1_8, "[MeshSerializer_v1.8]", std::unique_ptr<MeshSerializerImpl>(new MeshSerializerImpl())});
}

bool MeshSerializer::importMesh(DataStream& stream, ZuOgrePieceModel* model) {
    if (!model) return false;
    determineEndianness(stream);
    uint16_t id = 0;
    if (!readShorts(stream, &id, 1)) return false;
    std::string found = readString(stream);
    stream.seek(0);
    for (MeshVersionData& row : versions)
        if (row.versionString == found) return row.impl->importMesh(stream, model);
    QZLOGW("mesh file %s: version \"%s\" unknown, nothing read", stream.getName().c_str(), found.c_str());
    return false;
}

bool MeshSerializer::loadFile(const std::string& path, ZuOgrePieceModel* model) {
    DataStreamPtr stream = openFile(path);
    if (!stream) {
        QZLOGW("mesh file %s can't be opened", path.c_str());
        return false;
    }
    MeshSerializer reader;
    return reader.importMesh(*stream, model);
}
