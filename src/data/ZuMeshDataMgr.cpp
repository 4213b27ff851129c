#include "data/ZuMeshDataMgr.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/FaceMesh.h"
#include "data/StanderFace.h"
#include "platform/ZuLog.h"

#include <rapidjson/document.h>

#include <cfloat>

namespace {

// Mesh and standard face of each use, loaded in this order.
const char* const kNames[][2] = {
    {"facemesh_as", "standerface_as"},
    {"facemesh_as_simplify", "standerface_as_simplify"},
    {"facemesh_st", "standerface_st"},
    {"facemesh_st_simplify", "standerface_st_simplify"},
    {"facemesh_st_normal", "standerface_st_normal"},
    {"facemesh_fp", "standerface_fp"},
    {"facemesh_fp_simplify", "standerface_fp_simplify"},
    {"facemesh_zu", "standerface_zu"},
    {"facemesh_zu_simplify", "standerface_zu_simplify"},
};

constexpr int kMaxTriangles = FaceMesh::kMaxIndices / 3;
constexpr int kMaxPoints = StanderFace::kMaxValues / 2;

// A missing key, or one of another JSON type, leaves the field as it is (0).
void readInt(const rapidjson::Value& param, const char* key, int32_t* out) {
    if (param.HasMember(key) && param[key].IsInt()) *out = param[key].GetInt();
}

// Numbers beyond float range saturate rather than overflow the conversion.
float toFloat(const rapidjson::Value& value) {
    const double v = value.GetDouble();
    if (v > FLT_MAX) return FLT_MAX;
    if (v < -FLT_MAX) return -FLT_MAX;
    return static_cast<float>(v);
}

void readFloat(const rapidjson::Value& param, const char* key, float* out) {
    if (param.HasMember(key) && param[key].IsNumber()) *out = toFloat(param[key]);
}

// The "param" object and "data" array when present; null otherwise.
const rapidjson::Value* member(const rapidjson::Document& doc, const char* key, bool wantArray) {
    if (!doc.IsObject() || !doc.HasMember(key)) return nullptr;
    const rapidjson::Value& value = doc[key];
    return (wantArray ? value.IsArray() : value.IsObject()) ? &value : nullptr;
}

} // namespace

ZuMeshDataMgr::ZuMeshDataMgr(ZuAppMain* app) : ZuGBase(app) {}

ZuMeshDataMgr::~ZuMeshDataMgr() { destory(); }

void ZuMeshDataMgr::init() {
    int loaded = 0;
    for (const auto& pair : kNames) {
        loaded += loadFaceMesh(pair[0]) ? 1 : 0;
        loaded += loadStanderFace(pair[1]) ? 1 : 0;
    }
    // The target shape of the change-face overlay: a standard face alone.
    loaded += loadStanderFace("standerface_as_hg01") ? 1 : 0;
    QZLOGD("face data: %d of %d files loaded from %s", loaded, static_cast<int>(2 * sizeof kNames / sizeof kNames[0]) + 1,
           kMeshDir);
}

void ZuMeshDataMgr::destory() {
    for (auto it = standerFaces.getIterator(); !it.atEnd(); ++it) delete it->getValue();
    standerFaces.clear();
    for (auto it = faceMeshes.getIterator(); !it.atEnd(); ++it) delete it->getValue();
    faceMeshes.clear();
}

bool ZuMeshDataMgr::readFile(const char* name, qz::string* text) const {
    ZuFileMgr* files = fileMgr();
    if (!files || !name) return false;
    qz::string path(kMeshDir);
    path += name;
    path += ".json";
    DataChunk chunk;
    // A missing file is an installation without that face data: skipped quietly.
    if (!files->loadFileContentStr(&chunk, path.c_str()) || !chunk.getBuffer()) return false;
    *text = chunk.getBuffer();
    return true;
}

bool ZuMeshDataMgr::loadFaceMesh(const char* name) {
    qz::string text;
    if (!readFile(name, &text)) return false;
    rapidjson::Document doc;
    doc.Parse(text.c_str());
    if (doc.HasParseError() || !doc.IsObject()) {
        QZLOGW("face mesh \"%s\" refused: not a JSON object", name);
        return false;
    }
    FaceMesh* mesh = new FaceMesh();
    if (const rapidjson::Value* param = member(doc, "param", false)) {
        readInt(*param, "tricount", &mesh->tricount);
        readInt(*param, "vertexcount", &mesh->vertexcount);
    }
    const rapidjson::Value* data = member(doc, "data", true);
    const char* problem = nullptr;
    if (mesh->tricount < 0 || mesh->tricount > kMaxTriangles)
        problem = "triangle count outside 0 to 600";
    else if (mesh->vertexcount < 0)
        problem = "negative vertex count";
    else if (data && data->Size() > static_cast<rapidjson::SizeType>(FaceMesh::kMaxIndices))
        problem = "more than 1800 indices";
    if (!problem && data) {
        for (rapidjson::SizeType i = 0; i < data->Size(); ++i) {
            const rapidjson::Value& item = (*data)[i];
            if (!item.IsInt()) continue; // leaves a zero in its place
            const int index = item.GetInt();
            // Users index landmark arrays with these; one past the vertices would read outside them.
            if (index < 0 || (mesh->vertexcount > 0 && index >= mesh->vertexcount)) {
                problem = "an index outside the vertices";
                break;
            }
            mesh->data[i] = index;
        }
    }
    if (problem) {
        QZLOGW("face mesh \"%s\" refused: %s", name, problem);
        delete mesh;
        return false;
    }
    const qz::string key(name);
    if (auto* old = faceMeshes.find(key)) delete old->getValue();
    faceMeshes.set(key, mesh);
    return true;
}

bool ZuMeshDataMgr::loadStanderFace(const char* name) {
    qz::string text;
    if (!readFile(name, &text)) return false;
    rapidjson::Document doc;
    doc.Parse(text.c_str());
    if (doc.HasParseError() || !doc.IsObject()) {
        QZLOGW("standard face \"%s\" refused: not a JSON object", name);
        return false;
    }
    StanderFace* face = new StanderFace();
    if (const rapidjson::Value* param = member(doc, "param", false)) {
        readInt(*param, "facepoints_count", &face->facepoints_count);
        readInt(*param, "face_top", &face->face_top);
        readInt(*param, "face_left", &face->face_left);
        readInt(*param, "face_bottom", &face->face_bottom);
        readInt(*param, "face_right", &face->face_right);
        readFloat(*param, "face_yaw", &face->face_yaw);
        readFloat(*param, "face_roll", &face->face_roll);
        readFloat(*param, "face_pitch", &face->face_pitch);
        readInt(*param, "design_img_width", &face->design_img_width);
        readInt(*param, "design_img_height", &face->design_img_height);
    }
    const rapidjson::Value* data = member(doc, "data", true);
    const char* problem = nullptr;
    if (face->facepoints_count < 0 || face->facepoints_count > kMaxPoints)
        problem = "point count outside 0 to 400";
    else if (data && data->Size() > static_cast<rapidjson::SizeType>(StanderFace::kMaxValues))
        problem = "more than 800 coordinates";
    if (problem) {
        QZLOGW("standard face \"%s\" refused: %s", name, problem);
        delete face;
        return false;
    }
    if (data) {
        for (rapidjson::SizeType i = 0; i < data->Size(); ++i)
            if ((*data)[i].IsNumber()) face->data[i] = toFloat((*data)[i]);
    }
    const qz::string key(name);
    if (auto* old = standerFaces.find(key)) delete old->getValue();
    standerFaces.set(key, face);
    return true;
}

const FaceMesh* ZuMeshDataMgr::getFaceMesh(const char* name) const {
    auto* node = name ? faceMeshes.find(qz::string(name)) : nullptr;
    return node ? node->getValue() : nullptr;
}

const StanderFace* ZuMeshDataMgr::getStanderFace(const char* name) const {
    auto* node = name ? standerFaces.find(qz::string(name)) : nullptr;
    return node ? node->getValue() : nullptr;
}
