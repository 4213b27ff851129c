#include "parse/ZuParseTimeOut.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuTimeOutNode.h"

#include <cstdlib>

ZuParseData* ZuParseTimeOut::parseTimeOut(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                          const char*) {
    if (!value.IsString()) return nullptr;
    int seconds = atoi(value.GetString());
    if (seconds < 1) return nullptr;
    ZuParseTimeOut* data = new ZuParseTimeOut(app);
    data->type = "timeout";
    data->seconds = seconds;
    return data;
}

void ZuParseTimeOut::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    ZuNodeMgr* nodes = nodeMgr();
    if (!nodes || !nodes->getCreator()) return;
    ZuTimeOutNode* node =
        dynamic_cast<ZuTimeOutNode*>(nodes->getCreator()->createNode("ZuTimeOutNode", sceneName, "timeout"));
    if (!node) return;
    node->setresUID(resUID);
    node->setOwnerScene(sceneName);
    node->setTimeOut(seconds);
    _addNode(node);
}
