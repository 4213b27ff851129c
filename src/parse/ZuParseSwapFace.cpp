#include "parse/ZuParseSwapFace.h"

#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "data/DETECTTYPE.h"
#include "node/mask/ZuSwapFaceNode.h"
#include "parse/ZuParse.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

ZuParseData* ZuParseSwapFace::parseSwapFace(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                            const char* directory) {
    if (!value.IsObject()) return nullptr;
    ZuParseSwapFace* data = new ZuParseSwapFace(app);
    ZuParse::parseBase(data, value, directory);
    ZuParse::parseEvent(data, value, directory);
    return data;
}

void ZuParseSwapFace::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    ZuConfig* config = ZuGBase::configOf(app);
    if (!config || config->getDetectType() != DETECTTYPE_AS) return;
    ZuNodeMgr* nodes = ZuGBase::nodeMgrOf(app);
    if (!nodes || !nodes->getCreator()) return;
    auto* node = dynamic_cast<ZuSwapFaceNode*>(
        nodes->getCreator()->createNodeAsync("ZuSwapFaceASNode", sceneName, name.c_str(), 0, resUID));
    if (!node) return;
    node->initMesh();
    node->setresUID(resUID);
    node->setpersonID(0);
    node->setZOrder(order);
    _addNode(node);
}
