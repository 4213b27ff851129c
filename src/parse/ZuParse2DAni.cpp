#include "parse/ZuParse2DAni.h"

#include "parse/ZuParseAniFrame.h"
#include "platform/ZuLog.h"

ZuParseData* ZuParse2DAni::parse2DAni(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                      const char* sceneName, const char* directory) {
    if (!value.IsObject()) return nullptr;
    if (value.HasMember("spine")) {
        auto id = value.FindMember("id");
        QZLOGW("package %s, item '%s': skeletal \"anim\" items are not supported yet; no node",
               directory ? directory : "",
               id != value.MemberEnd() && id->value.IsString() ? id->value.GetString() : "");
        return nullptr;
    }
    return ZuParseAniFrame::parseAniFrame(app, value, resUID, sceneName, directory);
}
