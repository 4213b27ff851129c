#pragma once

#include "parse/ZuParseData.h"

#include <rapidjson/document.h>

class ZuNodeCreator;

// An "alphaMatting" item: paints the flat background out while a face is
// in the picture. "personid" 1 to 4 ties it to one person; 0 or none makes
// one node for each of the four.
class ZuParseAlphaMatting : public ZuParseData {
public:
    explicit ZuParseAlphaMatting(ZuAppMain* app) : ZuParseData(app) {}

    static ZuParseData* parseAlphaMatting(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                          const char* sceneName, const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

private:
    void makeNode(ZuNodeCreator* creator, const char* sceneName, int person);
};
