#include "parse/ZuParseSound.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/sound/ZuSoundNode.h"
#include "parse/ZuParse.h"
#include "platform/ZuLog.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

ZuParseData* ZuParseSound::parseSound(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                      const char* directory) {
    if (!value.IsObject()) return nullptr;
    const char* dir = directory ? directory : "";
    auto file = value.FindMember("file");
    if (file == value.MemberEnd() || !file->value.IsString() || file->value.GetStringLength() == 0) {
        auto id = value.FindMember("id");
        QZLOGW("package %s, item '%s': \"file\" is missing or not a string; no sound", dir,
               id != value.MemberEnd() && id->value.IsString() ? id->value.GetString() : "");
        return nullptr;
    }
    ZuParseSound* data = new ZuParseSound(app);
    ZuParse::parseBase(data, value, directory);
    ZuParse::parseEvent(data, value, directory);
    data->file = dir;
    data->file += file->value.GetString();
    auto loop = value.FindMember("loop");
    if (loop != value.MemberEnd() && loop->value.IsString())
        data->loopSound = !(qz::string("0") == loop->value.GetString());
    return data;
}

void ZuParseSound::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    ZuNodeMgr* nodeMgr = ZuGBase::nodeMgrOf(app);
    if (!nodeMgr || !nodeMgr->getCreator()) return;
    auto* node = dynamic_cast<ZuSoundNode*>(
        nodeMgr->getCreator()->createNodeAsync("ZuSoundNode", sceneName, name.c_str(), 0, resUID));
    if (!node) return;
    node->setpersonID(personID);
    node->setZOrder(order);
    node->setSoundName(file.c_str());
    node->setLoop(loopSound);
    node->play();
    _addNode(node);
}
