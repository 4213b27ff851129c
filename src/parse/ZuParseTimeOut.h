#pragma once

#include "parse/ZuParseData.h"

#include <rapidjson/document.h>

// A package's lifetime: builds a ZuTimeOutNode that removes the package
// when its time is up.
class ZuParseTimeOut : public ZuParseData {
public:
    explicit ZuParseTimeOut(ZuAppMain* app) : ZuParseData(app) {}

    // value: whole seconds as decimal text; anything else, or 0, is no limit.
    static ZuParseData* parseTimeOut(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                     const char* sceneName, const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    int seconds = 0;
};
