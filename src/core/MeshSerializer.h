#pragma once

#include "core/MeshSerializerImpl.h"

#include <memory>
#include <string>
#include <vector>

class ZuOgrePieceModel;

enum MeshVersion { MESH_VERSION_1_8 = 1 };

// Reads mesh files: picks the reader of the file's version string.
class MeshSerializer : public Serializer {
public:
    struct MeshVersionData {
        MeshVersion version;
        std::string versionString;
        std::unique_ptr<MeshSerializerImpl> impl;
    };

    MeshSerializer();
    // False when the file is refused (logged): unknown version, or broken.
    bool importMesh(DataStream& stream, ZuOgrePieceModel* model);
    // Opens a file and reads it; false when it can't be opened or read.
    static bool loadFile(const std::string& path, ZuOgrePieceModel* model);

private:
    std::vector<MeshVersionData> versions;
};
