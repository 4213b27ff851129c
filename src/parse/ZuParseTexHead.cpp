#include "parse/ZuParseTexHead.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "logicsys/Animate2D/ZuAniSpineNode.h"
#include "node/mask/ZuHeadNode.h"
#include "parse/ZuParseAnimate.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "scene/ZuSpineNodeNameVisitor.h"

#include <cstdio>
#include <cstdlib>

namespace {

void textOf(const rapidjson::Value& entry, const char* key, qz::string& out) {
    auto member = entry.FindMember(key);
    if (member != entry.MemberEnd() && member->value.IsString()) out = member->value.GetString();
}

} // namespace

void ZuParseTexHead::readEntries(const rapidjson::Value& value, const char* path, qz::array<TEXHEAD>& out) {
    if (!value.IsObject()) return;
    auto list = value.FindMember("texHead");
    if (list == value.MemberEnd()) return;
    if (!list->value.IsArray()) {
        QZLOGW("package %s: \"texHead\" is not an array; no head pictures", path ? path : "");
        return;
    }
    for (const rapidjson::Value& entry : list->value.GetArray()) {
        if (!entry.IsObject()) {
            QZLOGW("package %s: an entry of \"texHead\" is not an object; skipped", path ? path : "");
            continue;
        }
        TEXHEAD head;
        textOf(entry, "id", head.id);
        textOf(entry, "spineName", head.spineName);
        textOf(entry, "boneName", head.boneName);
        textOf(entry, "frameName", head.frameName);
        textOf(entry, "mask", head.maskName);
        auto frame = entry.FindMember("frame");
        if (frame != entry.MemberEnd() && frame->value.IsObject()) {
            auto w = frame->value.FindMember("w");
            auto h = frame->value.FindMember("h");
            if (w != frame->value.MemberEnd() && w->value.IsString())
                head.frameWidth = static_cast<float>(atof(w->value.GetString()));
            if (h != frame->value.MemberEnd() && h->value.IsString())
                head.frameHeight = static_cast<float>(atof(h->value.GetString()));
        }
        out.push_back(head);
    }
}

void ZuParseTexHead::parseTexHead(ZuAppMain* app, ZuParseAnimate* owner, const rapidjson::Value& value,
                                  const char* path) {
    if (!owner) return;
    ZuParseTexHead* data = new ZuParseTexHead(app);
    readEntries(value, path, data->entries);
    data->packagePath = path ? path : "";
    owner->setTexHeadData(data);
    data->release();
}

void ZuParseTexHead::generate(int newResUID, const char* sceneName, char* path) {
    ZuParseData::generate(newResUID, sceneName, path);
    ZuSceneMgr* scenes = sceneMgrOf(app);
    ZuNodeMgr* nodes = nodeMgrOf(app);
    ZuTexMgr* textures = texMgrOf(app);
    if (!scenes || !nodes || !textures || !nodes->getCreator() || !scenes->getScene(sceneName)) return;
    const qz::string dir(path ? path : packagePath.c_str());
    for (uint32_t e = 0; e < entries.size(); ++e) {
        const TEXHEAD& entry = entries[e];
        ZuSpineNodeNameVisitor* visitor = new ZuSpineNodeNameVisitor(entry.spineName.c_str());
        nodes->visit(visitor);
        const qz::array<ZuAniSpineNode*> found = visitor->getSpineNodeSet();
        visitor->release();
        // Entries behind a skeleton that is not there are not looked at.
        if (found.size() == 0) return;
        const qz::string textureName = entry.spineName + entry.boneName;
        ZuTexture* handedIn = nullptr;
        for (uint32_t n = 0; n < found.size(); ++n) {
            ZuAniSpineNode* spineNode = found[n];
            // Only a picture the host handed in: never created here.
            ZuTexture* head = textures->getTexture(textureName.c_str(), false, false);
            if (!head) continue;
            ZuTexture* mask = entry.maskName.empty()
                                  ? nullptr
                                  : textures->getTexture((dir + entry.maskName + ".png").c_str(), true, false);
            ZuTexture* frame = entry.frameName.empty()
                                   ? nullptr
                                   : textures->getTexture((dir + entry.frameName + ".png").c_str(), true, false);
            char number[16];
            snprintf(number, sizeof number, "%u", n + 1);
            const qz::string nodeName = qz::string(sceneName) + textureName + number;
            ZuHeadNode* node =
                dynamic_cast<ZuHeadNode*>(nodes->getCreator()->createNode("ZuHeadNode", sceneName, nodeName.c_str()));
            if (!node) continue;
            node->setresUID(resUID);
            node->setMaskTexture(mask);
            node->setTexture(head);
            node->setFrameTexture(frame);
            node->setTextureSize(entry.frameWidth, entry.frameHeight);
            node->setLinkSpine(spineNode);
            node->setLinkBoneName(entry.boneName.c_str());
            spineNode->addChild(node);
            handedIn = head;
        }
        // The host's picture was kept alive for its stickers; now that they
        // hold it, the keeping reference goes (once, however many took it).
        if (handedIn) handedIn->release();
    }
}
