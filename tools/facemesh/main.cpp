// Rewrites the face mesh files of every tracker back end from the landmarks
// of their standard faces:
//   qzfacemesh assets/shader/mesh
// reads standerface_<as|st|fp|zu>.json (the first landmarks of each, as
// scripts/gen_face_assets.py lays them out) and writes the full and the
// simplified standard face and mesh of each back end beside them, and the
// "hg01" target face of the change-face overlay. Running it
// twice changes nothing; tests/data checks the shipped files against it.
#include "node/mask/ZuFaceMeshBuilder.h"

#include <rapidjson/document.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

bool readLandmarks(const std::string& path, std::vector<float>* points, int* designW, int* designH) {
    std::ifstream in(path, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    rapidjson::Document doc;
    doc.Parse(text.c_str());
    if (doc.HasParseError() || !doc.IsObject() || !doc.HasMember("data") || !doc["data"].IsArray() ||
        !doc.HasMember("param")) {
        std::fprintf(stderr, "qzfacemesh: %s is not a standard face file\n", path.c_str());
        return false;
    }
    const auto& param = doc["param"];
    *designW = param.HasMember("design_img_width") ? param["design_img_width"].GetInt() : 0;
    *designH = param.HasMember("design_img_height") ? param["design_img_height"].GetInt() : 0;
    for (const auto& v : doc["data"].GetArray()) points->push_back(v.IsNumber() ? v.GetFloat() : 0.0f);
    return *designW > 0 && *designH > 0;
}

bool writeText(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    out << text;
    return static_cast<bool>(out);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: qzfacemesh MESH_DIR\n");
        return 2;
    }
    const std::string dir = argv[1];
    for (const char* name : {"as", "st", "fp", "zu"}) {
        const ZuFaceMeshBuilder::Backend* backend = ZuFaceMeshBuilder::backend(name);
        std::vector<float> landmarks;
        int designW = 0, designH = 0;
        if (!readLandmarks(dir + "/standerface_" + name + ".json", &landmarks, &designW, &designH)) return 1;
        for (bool simplified : {false, true}) {
            std::vector<float> points;
            if (!ZuFaceMeshBuilder::extend(*backend, simplified, landmarks.data(),
                                           static_cast<int>(landmarks.size() / 2), static_cast<float>(designW),
                                           static_cast<float>(designH), &points))
                return 1;
            const std::vector<int> triangles = ZuFaceMeshBuilder::triangulate(*backend, simplified, points);
            const std::string suffix = std::string(name) + (simplified ? "_simplify" : "");
            const int n = static_cast<int>(points.size() / 2);
            if (!writeText(dir + "/standerface_" + suffix + ".json",
                           ZuFaceMeshBuilder::standerFaceJson(points, designW, designH)) ||
                !writeText(dir + "/facemesh_" + suffix + ".json", ZuFaceMeshBuilder::faceMeshJson(triangles, n)))
                return 1;
            std::printf("%s: %d points, %zu triangles\n", suffix.c_str(), n, triangles.size() / 3);
        }
    }
    // The target face of the change-face overlay, from the AS landmarks.
    std::vector<float> as, target;
    int designW = 0, designH = 0;
    if (!readLandmarks(dir + "/standerface_as.json", &as, &designW, &designH) ||
        !ZuFaceMeshBuilder::hg01(as.data(), static_cast<int>(as.size() / 2), &target) ||
        !writeText(dir + "/standerface_as_hg01.json", ZuFaceMeshBuilder::standerFaceJson(target, designW, designH)))
        return 1;
    std::printf("as_hg01: %zu points\n", target.size() / 2);
    return 0;
}
