#include "parse/ZuParseAlphaMatting.h"

#include "basesys/ZuGBase.h"
#include "parse/ZuParse.h"
#include "platform/ZuLog.h"
#include "scene/ZuNode.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

ZuParseData* ZuParseAlphaMatting::parseAlphaMatting(ZuAppMain* app, const rapidjson::Value& value, int,
                                                    const char*, const char* directory) {
    if (!value.IsObject()) {
        QZLOGW("package %s: an \"alphaMatting\" item is not an object", directory ? directory : "");
        return nullptr;
    }
    ZuParseAlphaMatting* data = new ZuParseAlphaMatting(app);
    ZuParse::parseBase(data, value, directory);
    if (data->personID < 0 || data->personID > 4) {
        QZLOGW("package %s, item '%s': \"personid\" %d is not 0 to 4; no matting", directory ? directory : "",
               data->name.c_str(), data->personID);
        data->release();
        return nullptr;
    }
    return data;
}

void ZuParseAlphaMatting::makeNode(ZuNodeCreator* creator, const char* sceneName, int person) {
    ZuNode* node = creator->createNodeAsync("ZuAlphaMattingNode", sceneName, name.c_str(), person, resUID);
    if (!node) return;
    node->setresUID(resUID);
    node->setpersonID(person);
    _addNode(node);
}

void ZuParseAlphaMatting::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    ZuNodeMgr* nodeMgr = ZuGBase::nodeMgrOf(app);
    ZuNodeCreator* creator = nodeMgr ? nodeMgr->getCreator() : nullptr;
    if (!creator) return;
    if (personID != 0) {
        makeNode(creator, sceneName, personID);
        return;
    }
    for (int person = 1; person <= 4; ++person) makeNode(creator, sceneName, person);
}
