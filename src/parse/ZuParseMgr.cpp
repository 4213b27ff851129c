#include "parse/ZuParseMgr.h"

#include "basesys/ZuGBase.h"
#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "operate/ZuOperateCameraControl.h"
#include "operate/ZuOperateCreateSkyDome.h"
#include "operate/ZuOperateGenHeadTexture.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateQueue.h"
#include "parse/SpineHeadRes.h"
#include "parse/ZuParseData.h"
#include "parse/ZuParseItemTypes.h"
#include "platform/ZuLog.h"
#include "render/command/RENDERSTREAMTYPE.h"

void ZuParseMgr::init() {
    dictionary.clear();
    ZuConfig* config = ZuGBase::configOf(app);
    registerBuiltinItemTypes(this, config ? config->filter : CfgFilter());
}

void ZuParseMgr::registDictionary(const char* typeName, ZuParseFunc func) {
    if (typeName && func) dictionary.insert(qz::string(typeName), func);
}

void ZuParseMgr::unregistDictionary(const char* typeName) {
    if (typeName) dictionary.remove(qz::string(typeName));
}

bool ZuParseMgr::hasRegist(const char* typeName) const {
    return typeName && dictionary.find(qz::string(typeName));
}

bool ZuParseMgr::parse(const char* path, int resUID, const char* sceneName) {
    ZuFileMgr* files = fileMgr();
    if (!files || !path) return false;
    qz::string fileName(path);
    fileName += "/config.json";
    DataChunk chunk;
    if (!files->loadFileContentStr(&chunk, fileName.c_str()) || chunk.size <= 0) return false;
    rapidjson::Document document;
    document.Parse(reinterpret_cast<const char*>(chunk.buffer));
    if (document.HasParseError()) return false;
    qz::string directory(path);
    directory += "/";
    if (!document.IsObject()) {
        // Valid JSON that is not an object has none of the keys: it builds nothing.
        QZLOGW("package %s: config.json is not a JSON object; nothing to build", path);
        return true;
    }
    auto timeout = document.FindMember("timeout");
    if (timeout != document.MemberEnd())
        _callTypeParse("timeout", timeout->value, resUID, sceneName, directory.c_str());
    auto exitMode = document.FindMember("existMode");
    if (exitMode != document.MemberEnd() && !(exitMode->value.IsNumber() && exitMode->value.GetDouble() == 0))
        _parseExitMode(exitMode->value);
    auto param = document.FindMember("param");
    if (param == document.MemberEnd() || !param->value.IsArray()) return true;
    for (const rapidjson::Value& item : param->value.GetArray()) {
        if (!item.IsObject()) {
            QZLOGW("package %s: an element of \"param\" is not an object; skipped", path);
            continue;
        }
        _parseCommon(item, resUID, sceneName, directory.c_str());
        auto type = item.FindMember("type");
        if (type != item.MemberEnd() && type->value.IsString())
            _callTypeParse(type->value.GetString(), item, resUID, sceneName, directory.c_str());
    }
    return true;
}

void ZuParseMgr::_callTypeParse(const char* type, const rapidjson::Value& value, int resUID, const char* sceneName,
                                const char* directory) {
    auto* entry = dictionary.find(qz::string(type));
    if (!entry) return;
    ZuParseData* data = entry->getValue()(app, value, resUID, sceneName, directory);
    if (data) ZuParseData::generate(app, data, sceneName, resUID, directory);
}

void ZuParseMgr::_parseExitMode(const rapidjson::Value& value) {
    ZuOperateQueue* queue = operateQueue();
    if (queue && value.IsString()) queue->setExitMode(qz::string(value.GetString()));
}

// "AR" and "SkyDome" act whatever the item's type, even an unknown one.
void ZuParseMgr::_parseCommon(const rapidjson::Value& item, int resUID, const char* sceneName,
                              const char* directory) {
    ZuOperateMgr* operates = operateMgr();
    if (!operates) return;
    auto ar = item.FindMember("AR");
    if (ar != item.MemberEnd() && ar->value.IsObject()) {
        auto control = ar->value.FindMember("CameraControl");
        if (control != ar->value.MemberEnd() && control->value.IsInt() && control->value.GetInt() == 1) {
            ZuOperateCameraControl* op = new ZuOperateCameraControl(app, true, resUID, sceneName);
            operates->pushOperate(op);
            op->release();
        }
    }
    auto sky = item.FindMember("SkyDome");
    if (sky != item.MemberEnd() && sky->value.IsObject()) {
        auto texture = sky->value.FindMember("TexturePath");
        if (texture != sky->value.MemberEnd() && texture->value.IsString()) {
            qz::string path(directory);
            path += texture->value.GetString();
            ZuOperateCreateSkyDome* op = new ZuOperateCreateSkyDome(app, path.c_str(), sceneName, resUID);
            auto order = sky->value.FindMember("RenderOrder");
            if (order != sky->value.MemberEnd() && order->value.IsInt() && order->value.GetInt() == 1)
                op->setRenderOrder(RS_BG_RENDER);
            operates->pushOperate(op);
            op->release();
        }
    }
}

void ZuParseMgr::parseTexHeadStream(qz::array<SpineHeadRes>* heads) {
    ZuOperateMgr* operates = operateMgr();
    if (!heads) return;
    for (uint32_t i = 0; i < heads->size() && operates; i++) {
        SpineHeadRes& head = (*heads)[i];
        qz::string name = head.first;
        name += head.second;
        ZuOperateGenHeadTexture* op =
            new ZuOperateGenHeadTexture(app, name.c_str(), head.width, head.height, head.pixels);
        operates->pushOperate(op);
        op->release();
    }
    heads->clear();
}
