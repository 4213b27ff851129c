#include "parse/ZuParseEffectFilter.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/beauty/ZuBeautyNode.h"
#include "parse/ZuParse.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

namespace {

// Whole numbers are not taken: packages write strengths as decimals.
void floatKey(const rapidjson::Value& item, const char* key, float& out) {
    auto member = item.FindMember(key);
    if (member != item.MemberEnd() && member->value.IsFloat()) out = member->value.GetFloat();
}

} // namespace

ZuParseData* ZuParseEffectFilter::parseEffectFilter(ZuAppMain* app, const rapidjson::Value& value, int,
                                                    const char*, const char* directory) {
    if (!value.IsObject()) return nullptr;
    ZuParseEffectFilter* data = new ZuParseEffectFilter(app);
    ZuParse::parseBase(data, value, directory);
    floatKey(value, "eyeLargeLeft", data->eyeLargeLeft);
    floatKey(value, "eyeLargeRight", data->eyeLargeRight);
    floatKey(value, "faceSlim", data->faceSlim);
    floatKey(value, "chinSlim", data->chinSlim);
    floatKey(value, "chinUpSlim", data->chinUpSlim);
    floatKey(value, "chinMidSlim", data->chinMidSlim);
    return data;
}

void ZuParseEffectFilter::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    ZuNodeMgr* nodeMgr = ZuGBase::nodeMgrOf(app);
    ZuNodeCreator* creator = nodeMgr ? nodeMgr->getCreator() : nullptr;
    if (!creator) return;
    if (subType == "EFFECT_BEAUTY") {
        generateBeauty(sceneName);
    } else if (subType == "EFFECT_SHAKE") {
        ZuNode* node = creator->createNodeAsync("ZuEffectShakeNode", sceneName, name.c_str(), 0, resUID);
        if (!node) return;
        node->setresUID(resUID);
        node->setpersonID(1);
        _addNode(node);
    } else if (subType == "EFFECT_SKETCH") {
        ZuNode* node = creator->createNodeAsync("ZuSketchFilterNode", sceneName, name.c_str(), 0, resUID);
        if (!node) return;
        node->setresUID(resUID);
        _addNode(node);
    }
}

void ZuParseEffectFilter::generateBeauty(const char* sceneName) {
    ZuNodeMgr* nodeMgr = app->getGlobalMgr()->getNodeMgr();
    auto* node = dynamic_cast<ZuBeautyNode*>(nodeMgr->getNode(kSharedBeautyName));
    bool created = false;
    if (!node) {
        node = dynamic_cast<ZuBeautyNode*>(
            nodeMgr->getCreator()->createNodeAsync("ZuBeautyNode", sceneName, name.c_str(), 0, resUID));
        if (!node) return;
        created = true;
        node->setresUID(resUID);
        node->setpersonID(1);
    }
    node->setEyeLarge(eyeLargeLeft, eyeLargeRight);
    node->setFaceSlim(faceSlim);
    node->setChinSlim(chinSlim);
    node->setChinUpSlim(chinUpSlim);
    node->setChinMiddleSlim(chinMidSlim);
    if (created) _addNode(node);
}
