#include "parse/ZuParseOgreAnimoji.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGBase.h"
#include "basesys/ZuGlobalParam.h"
#include "core/ZuOgreAnimojiNode.h"
#include "parse/ZuParse.h"
#include "platform/ZuLog.h"
#include "render/ZuRenderCamera.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

namespace {
float number(const rapidjson::Value& object, const char* key) {
    auto it = object.FindMember(key);
    if (it == object.MemberEnd() || !it->value.IsNumber()) return 0.0f;
    return static_cast<float>(it->value.GetDouble());
}
std::string text(const rapidjson::Value& object, const char* key) {
    auto it = object.FindMember(key);
    return it != object.MemberEnd() && it->value.IsString() ? it->value.GetString() : "";
}
} // namespace

ZuParseData* ZuParseOgreAnimoji::parseOgreAnimoji(ZuAppMain* app, const rapidjson::Value& value, int,
                                                  const char*, const char* directory) {
    if (!value.IsObject()) return nullptr;
    const char* dir = directory ? directory : "";
    std::string id = text(value, "id");
    auto animoji = value.FindMember("animoji");
    auto bones = value.FindMember("ManualBones");
    if (animoji == value.MemberEnd() || !animoji->value.IsObject() || bones == value.MemberEnd() ||
        !bones->value.IsArray()) {
        QZLOGW("package %s, item '%s': \"animoji\" object or \"ManualBones\" array missing; no character", dir,
               id.c_str());
        return nullptr;
    }
    std::string mesh = text(animoji->value, "mesh_name");
    if (mesh.empty()) {
        QZLOGW("package %s, item '%s': \"animoji\" has no \"mesh_name\"; no character", dir, id.c_str());
        return nullptr;
    }
    auto* data = new ZuParseOgreAnimoji(app);
    ZuParse::parseBase(data, value, directory);
    data->meshName = mesh;
    data->materialName = text(animoji->value, "material_name");
    data->backgroundName = text(animoji->value, "background_texture");
    for (const rapidjson::Value& bone : bones->value.GetArray()) {
        // Entries must be objects; one without a string name and an int weight is skipped.
        if (!bone.IsObject()) continue;
        auto name = bone.FindMember("name");
        auto weight = bone.FindMember("weight");
        if (name == bone.MemberEnd() || !name->value.IsString() || weight == bone.MemberEnd() ||
            !weight->value.IsInt())
            continue;
        data->manualBones[name->value.GetString()] = weight->value.GetInt();
    }
    auto transform = value.FindMember("transform");
    if (transform != value.MemberEnd() && transform->value.IsObject()) {
        const rapidjson::Value& t = transform->value;
        std::string px = text(t, "pos_x");
        data->centerX = px == "center";
        data->followFace = px == "face";
        data->pos[0] = number(t, "pos_x");
        data->pos[1] = number(t, "pos_y");
        data->pos[2] = number(t, "pos_z");
        data->scale[0] = number(t, "scale_x");
        data->scale[1] = number(t, "scale_y");
        data->scale[2] = number(t, "scale_z");
    }
    return data;
}

void ZuParseOgreAnimoji::generate(int newResUID, const char* sceneName, char* directory) {
    resUID = newResUID;
    ZuNodeMgr* nodeMgr = ZuGBase::nodeMgrOf(app);
    if (!nodeMgr || !nodeMgr->getCreator()) return;
    auto* node = dynamic_cast<ZuOgreAnimojiNode*>(
        nodeMgr->getCreator()->createNodeAsync("ZuOgreAnimojiNode", sceneName, name.c_str(), personID, resUID));
    if (!node) return;
    ZuRenderCamera* camera = app->getGlobalParam() ? app->getGlobalParam()->activeCamera : nullptr;
    float width = camera ? camera->getWidth() : 720.0f;
    float height = camera ? camera->getHeight() : 1280.0f;
    float adapt = height == 1280.0f ? 1.0f : height / 1280.0f;
    if (followFace) {
        // Sizes are multiples of the face's width, so no adaptation.
        node->SetFollowFace(true);
        node->SetPostion(ZuVec3(0.0f, 0.0f, pos[2]));
        node->SetScale(ZuVec3(scale[0], scale[1], scale[2]));
    } else {
        node->SetPostion(ZuVec3(centerX ? width * 0.5f : pos[0], height * 0.5f + pos[1] * adapt, pos[2]));
        node->SetScale(ZuVec3(scale[0] * adapt, scale[1] * adapt, scale[2]));
    }
    node->SetManualBones(manualBones);
    std::string dir = directory ? directory : "";
    ZuFileMgr* files = ZuGBase::fileMgrOf(app);
    auto full = [&](const std::string& file) {
        if (file.empty()) return file;
        qz::string found = files ? files->getFileFullName((dir + file).c_str()) : qz::string();
        return found.empty() ? dir + file : std::string(found.c_str());
    };
    node->SetBackgroundTexture(full(backgroundName));
    node->LoadModel(full(meshName), full(materialName));
    _addNode(node);
}
