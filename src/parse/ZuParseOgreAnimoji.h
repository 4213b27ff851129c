#pragma once

#include "basesys/qzString.h"
#include "parse/ZuParseData.h"
#include "render/math/ZuVec3.h"

#include <rapidjson/document.h>

#include <map>
#include <string>

// An "ogreAnimoji" item: a 3D character driven by the first person's face.
// Needs an "animoji" object (mesh_name, material_name, optional
// background_texture) and a "ManualBones" array; "transform" places it.
class ZuParseOgreAnimoji : public ZuParseData {
public:
    explicit ZuParseOgreAnimoji(ZuAppMain* app) : ZuParseData(app) {}

    static ZuParseData* parseOgreAnimoji(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                         const char* sceneName, const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    std::string meshName, materialName, backgroundName;
    std::map<std::string, int> manualBones;
    // Raw transform values; "center" and the camera adaptation are applied
    // when the node is built, with the scene's camera.
    float pos[3] = {0, 0, 0};
    float scale[3] = {0, 0, 0};
    bool centerX = false;
    bool followFace = false;
};
