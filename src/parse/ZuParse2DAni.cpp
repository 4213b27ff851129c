#include "parse/ZuParse2DAni.h"

#include "parse/ZuParseAniFrame.h"
#include "parse/ZuParseAnimate.h"

ZuParseData* ZuParse2DAni::parse2DAni(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                      const char* sceneName, const char* directory) {
    if (!value.IsObject()) return nullptr;
    if (value.HasMember("spine")) return ZuParseAnimate::parseAnim(app, value, resUID, sceneName, directory);
    return ZuParseAniFrame::parseAniFrame(app, value, resUID, sceneName, directory);
}
