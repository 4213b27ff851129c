#include "parse/ZuParseAnimate.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "logicsys/Animate2D/ZuAniSpineNode.h"
#include "logicsys/Animate2D/ZuSpine.h"
#include "parse/ZuParse.h"
#include "parse/ZuParseTexHead.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexMgr.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

#include <cstdlib>

namespace {

const char* textOf(const rapidjson::Value& item, const char* key, const char* directory, const char* id) {
    auto member = item.FindMember(key);
    if (member == item.MemberEnd()) return nullptr;
    if (!member->value.IsString()) {
        QZLOGW("package %s, item '%s': \"%s\" is not a string; ignored", directory, id, key);
        return nullptr;
    }
    return member->value.GetString();
}

} // namespace

ZuParseAnimate::~ZuParseAnimate() { qzSafeRelease(texHead); }

void ZuParseAnimate::setTexHeadData(ZuParseTexHead* data) { qzAssignRetained(texHead, data); }

ZuParseData* ZuParseAnimate::parseAnim(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                       const char* directory) {
    if (!value.IsObject()) return nullptr;
    const char* dir = directory ? directory : "";
    ZuParseAnimate* data = new ZuParseAnimate(app);
    ZuParse::parseBase(data, value, directory);
    ZuParse::parseEvent(data, value, directory);
    const char* id = data->id.c_str();
    data->name = data->id;
    data->directory = dir;
    if (const char* mask = textOf(value, "texMask", dir, id)) data->texMask = mask;

    auto sync = value.FindMember("syncPosBoneName");
    if (sync != value.MemberEnd()) {
        if (!sync->value.IsArray()) {
            QZLOGW("package %s, item '%s': \"syncPosBoneName\" is not an array; ignored", dir, id);
        } else {
            // Each name goes to the front: the list runs opposite to the file.
            for (const rapidjson::Value& entry : sync->value.GetArray())
                if (entry.IsString()) data->syncPosBoneNames.insert(qz::string(entry.GetString()), 0);
        }
    }

    auto spine = value.FindMember("spine");
    if (spine != value.MemberEnd()) {
        if (!spine->value.IsObject()) {
            QZLOGW("package %s, item '%s': \"spine\" is not an object; no sticker", dir, id);
        } else {
            data->hasSpine = true;
            const rapidjson::Value& body = spine->value;
            if (const char* name = textOf(body, "spine_name", dir, id)) data->spineName = name;
            if (const char* clip = textOf(body, "animation", dir, id)) data->animation = clip;
            auto map = body.FindMember("boneMap");
            if (map != body.MemberEnd()) {
                if (!map->value.IsObject()) {
                    QZLOGW("package %s, item '%s': \"boneMap\" is not an object; no bone follows the face", dir, id);
                } else {
                    for (auto it = map->value.MemberBegin(); it != map->value.MemberEnd(); ++it) {
                        if (!it->value.IsString()) {
                            QZLOGW("package %s, item '%s': \"boneMap\" entry '%s' is not a string; skipped", dir, id,
                                   it->name.GetString());
                            continue;
                        }
                        data->boneMapBones.push_back(qz::string(it->name.GetString()));
                        data->boneMapIndices.push_back(qz::string(it->value.GetString()));
                    }
                }
            }
            if (data->spineName.empty())
                QZLOGW("package %s, item '%s': \"spine\" names no \"spine_name\"; no sticker", dir, id);
        }
    }
    ZuParseTexHead::parseTexHead(app, data, value, dir);
    return data;
}

void ZuParseAnimate::inner_load_trigevent(ZuParseAnimate* item, const char* scene, ZuAniSpineNode* node) {
    node->setloop(item->loop == 1);
    if (item->reactState > 0) node->setreact(item->reactState);
    ZuTriggerLists& triggers = node->getTriggers();
    for (uint32_t i = 0; i < item->triggeredBy.size(); ++i) {
        const ZuTriggeredBy& entry = item->triggeredBy[i];
        triggers.pushEventToStartList(ZuTriggerLists::makeTriggerPattern(
            entry.category, entry.dependsOn, entry.event, scene, node->getpersonID(), item->resUID));
    }
    for (uint32_t i = 0; i < item->terminatedBy.size(); ++i) {
        const ZuTerminatedBy& entry = item->terminatedBy[i];
        triggers.pushEventToStopList(ZuTriggerLists::makeTriggerPattern(
            entry.category, entry.dependsOn, entry.event, scene, node->getpersonID(), item->resUID));
    }
    if (item->reactState >= 1) triggers.loadReactEvents(*item, scene, item->resUID);
}

ZuAniSpineNode* ZuParseAnimate::inner_createVersion2SpineAnimate(ZuAppMain* app, ZuParseAnimate* item,
                                                                 const char* scene, int person, int uid) {
    const qz::string base = item->directory + item->spineName;
    const qz::string json = base + ".json", atlas = base + ".atlas";
    ZuSpine* spine = ZuSpine::createSpine(app, scene, json.c_str(), atlas.c_str(), 1.0f);
    if (!spine) return nullptr;
    spine->setSpineName(item->spineName.c_str());
    ZuNodeMgr* nodes = ZuGBase::nodeMgrOf(app);
    ZuAniSpineNode* node =
        nodes && nodes->getCreator()
            ? dynamic_cast<ZuAniSpineNode*>(
                  nodes->getCreator()->createNodeAsync("ZuAniSpineNode", scene, item->name.c_str(), person, uid))
            : nullptr;
    if (!node) {
        spine->release();
        return nullptr;
    }
    // The trigger patterns below are made for this person and package.
    node->setpersonID(person);
    node->setresUID(uid);
    if (item->syncPosBoneNames.size() > 0) node->setSyncPosBoneNames(item->syncPosBoneNames);
    const bool screen = item->subType == "screen";
    node->setisScreen(screen);
    if (screen) {
        if (ZuConfig* config = ZuGBase::configOf(app)) config->screenAnimation = true;
    }
    node->setSpine(spine);
    spine->release();
    node->setisComplete(false);
    node->setisStop(true);
    inner_load_trigevent(item, scene, node);
    if (!item->texMask.empty()) {
        if (ZuTexMgr* textures = ZuGBase::texMgrOf(app))
            node->setMaskTexture(textures->getTexture((item->directory + item->texMask + ".png").c_str(), true, false));
    }
    for (uint32_t i = 0; i < item->boneMapBones.size(); ++i)
        node->addBindMapName(item->boneMapBones[i].c_str(),
                             static_cast<int>(atoi(item->boneMapIndices[i].c_str()) * 0.1f));
    return node;
}

void ZuParseAnimate::generate(int newResUID, const char* sceneName, char* dir) {
    ZuParseData::generate(newResUID, sceneName, dir);
    if (!hasSpine || spineName.empty()) return;
    if (dir) directory = dir;
    qz::array<int> persons;
    const bool face = subType == "face";
    if (!face) persons.push_back(0);
    else if (personID != 0) persons.push_back(personID);
    else for (int p = 1; p <= 4; ++p) persons.push_back(p);
    for (uint32_t i = 0; i < persons.size(); ++i) {
        ZuAniSpineNode* node = inner_createVersion2SpineAnimate(app, this, sceneName, persons[i], resUID);
        if (!node) {
            QZLOGW("package %s, item '%s': skeleton %s does not load; no sticker", directory.c_str(), id.c_str(),
                   spineName.c_str());
            return;
        }
        node->setresUID(resUID);
        node->setaniName(id.c_str());
        node->setpersonID(persons[i]);
        if (!face && reactState != 0) node->setCanSelect(true);
        // A sticker with a trigger waits for it, hidden; one without plays
        // as soon as it is built.
        if (triggeredBy.size() > 0) node->setVisible(false);
        else node->play();
        node->setZOrder(order);
        _addNode(node);
    }
    if (texHead) {
        // Head pictures look their stickers up among the built nodes.
        texHead->generate(resUID, sceneName, dir);
        qzSafeRelease(texHead);
    }
}
