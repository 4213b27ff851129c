#include "parse/ZuParseMask.h"

#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "data/DETECTTYPE.h"
#include "node/mask/Zu2DFaceMaskNode.h"
#include "node/mask/ZuMaterialFace2d.h"
#include "parse/ZuParse.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexMgr.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

namespace {

const char* maskTypeOf(int detectType) {
    switch (detectType) {
    case DETECTTYPE_AS: return "Zu2DFaceMaskASNode";
    case DETECTTYPE_ST: return "Zu2DFaceMaskSTNode";
    case DETECTTYPE_FP: return "Zu2DFaceMaskFPNode";
    default: return "Zu2DFaceMaskZUNode";
    }
}

bool isOverlay(const qz::string& subType) {
    return subType == "mask_show_self" || subType == "mask_change_face";
}

} // namespace

ZuParseData* ZuParseMask::parseMask(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                    const char* directory) {
    if (!value.IsObject()) return nullptr;
    const char* dir = directory ? directory : "";
    ZuParseMask* data = new ZuParseMask(app);
    ZuParse::parseBase(data, value, directory);
    ZuParse::parseEvent(data, value, directory);
    auto typemesh = value.FindMember("typemesh");
    if (typemesh != value.MemberEnd() && typemesh->value.IsString()) data->typemesh = typemesh->value.GetString();
    auto images = value.FindMember("images");
    if (images != value.MemberEnd() && images->value.IsArray()) {
        for (const auto& image : images->value.GetArray()) {
            if (!image.IsString() || image.GetStringLength() == 0) continue;
            qz::string path(dir);
            path += image.GetString();
            data->images.push_back(path);
        }
    }
    if (data->images.size() == 0 && !isOverlay(data->subType)) {
        QZLOGW("package %s, mask item '%s': no \"images\"; no mask", dir, data->name.c_str());
        data->release();
        return nullptr;
    }
    return data;
}

void ZuParseMask::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    if (subType == "mask_show_self") {
        createOverlay("Zu2DFaceRealNode", (name + "Real").c_str(), sceneName);
        return;
    }
    if (subType == "mask_change_face") {
        createOverlay("Zu2DFaceChangeTargetNode", (name + "change_face").c_str(), sceneName);
        return;
    }
    ZuConfig* config = ZuGBase::configOf(app);
    const char* typeName = maskTypeOf(config ? config->getDetectType() : DETECTTYPE_AS);
    if (personID != 0) {
        createMaskNode(typeName, sceneName, personID);
        return;
    }
    for (int person = 1; person <= 4; ++person) createMaskNode(typeName, sceneName, person);
}

void ZuParseMask::createMaskNode(const char* typeName, const char* sceneName, int person) {
    ZuNodeMgr* nodes = ZuGBase::nodeMgrOf(app);
    if (!nodes || !nodes->getCreator()) return;
    auto* node = dynamic_cast<Zu2DFaceMaskNode*>(
        nodes->getCreator()->createNodeAsync(typeName, sceneName, name.c_str(), person, resUID));
    if (!node) return;
    node->initMesh(FACEMASK2D_FULL);
    node->setresUID(resUID);
    node->setpersonID(person);
    node->setZOrder(order);
    node->setsceneName(sceneName);
    ZuMaterialFace2d* material = new ZuMaterialFace2d(app);
    material->init();
    node->setMaterial(material);
    material->release();
    ZuTexMgr* textures = ZuGBase::texMgrOf(app);
    for (uint32_t i = 0; i < images.size() && textures; ++i)
        if (ZuTexture* texture = textures->getTexture(images[i].c_str(), true, false)) material->setMaskTexture(texture);
    _addNode(node);
}

void ZuParseMask::createOverlay(const char* typeName, const char* nodeName, const char* sceneName) {
    ZuNodeMgr* nodes = ZuGBase::nodeMgrOf(app);
    if (!nodes || !nodes->getCreator()) return;
    ZuNode* node = nodes->getCreator()->createNodeAsync(typeName, sceneName, nodeName, 0, resUID);
    if (!node) {
        QZLOGW("mask item '%s': no %s on this build", name.c_str(), typeName);
        return;
    }
    node->setresUID(resUID);
    node->setpersonID(personID != 0 ? personID : 1);
    node->setZOrder(order);
    _addNode(node);
}
