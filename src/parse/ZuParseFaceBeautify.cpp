#include "parse/ZuParseFaceBeautify.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/beauty/ZuFaceBuffingWhiteNode.h"
#include "parse/ZuParse.h"
#include "platform/ZuLog.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

#include <cstdlib>

namespace {

bool numberText(const rapidjson::Value& item, const char* key, const char* directory, float& out) {
    auto member = item.FindMember(key);
    if (member == item.MemberEnd()) return false;
    if (!member->value.IsString()) {
        QZLOGW("package %s: faceBeautify \"%s\" is not text holding a number; ignored", directory ? directory : "",
               key);
        return false;
    }
    out = static_cast<float>(atof(member->value.GetString()));
    return true;
}

} // namespace

ZuParseData* ZuParseFaceBeautify::parseFaceBeautify(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                                    const char* directory) {
    if (!value.IsObject()) return nullptr;
    ZuParseFaceBeautify* data = new ZuParseFaceBeautify(app);
    ZuParse::parseBase(data, value, directory);
    data->hasSmooth = numberText(value, "adjustSmooth", directory, data->adjustSmooth);
    numberText(value, "adjustColor", directory, data->adjustColor);
    return data;
}

void ZuParseFaceBeautify::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    ZuNodeMgr* nodeMgr = ZuGBase::nodeMgrOf(app);
    if (!nodeMgr || !nodeMgr->getCreator()) return;
    auto* node = dynamic_cast<ZuFaceBuffingWhiteNode*>(
        nodeMgr->getCreator()->createNodeAsync("ZuFaceBuffingWhiteNode", sceneName, name.c_str(), 0, resUID));
    if (!node) return;
    // Without "adjustSmooth" the node keeps its material's starting strength.
    if (hasSmooth) node->updateSmooth(adjustSmooth);
    node->setresUID(resUID);
    node->setpersonID(1);
    _addNode(node);
}
