#pragma once

#include "parse/ZuParseData.h"

#include <rapidjson/document.h>

// A "faceMorph" item: one of the shader small-face warps by number
// ("faceMorphType" 1..8 but 6), for the item's "personid" or, with 0, for
// each of the persons 1 to 4. "isSmall", "value", "smallLevel" (text) and
// "deltaArray" (8 texts) are read and kept; the warp's own table decides.
class ZuParseFaceMorph : public ZuParseData {
public:
    explicit ZuParseFaceMorph(ZuAppMain* app) : ZuParseData(app) {}

    static ZuParseData* parseFaceMorph(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                       const char* sceneName, const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    // The node type, level and direction of a morph type; false for none.
    static bool warpOf(int morphType, const char** nodeType, float* level, bool* small);

    int faceMorphType = 0;
    bool isSmall = true;
    float value = 0.0f;
    float smallLevel = 0.0f;
    float deltaArray[8] = {};
    bool hasDeltaArray = false;
};
