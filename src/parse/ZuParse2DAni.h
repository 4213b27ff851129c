#pragma once

#include <rapidjson/document.h>

class ZuAppMain;
class ZuParseData;

// Every "anim" item: a skeletal one (with a "spine" member) or a flip-book.
class ZuParse2DAni {
public:
    static ZuParseData* parse2DAni(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                   const char* sceneName, const char* directory);
};
