#pragma once

#include "parse/ZuParseData.h"

#include <rapidjson/document.h>

// An "EffectFilter" item: by subType a face warp (EFFECT_BEAUTY), a shake or
// a sketch look. Only JSON floating-point numbers count as values.
class ZuParseEffectFilter : public ZuParseData {
public:
    // One shared warp per engine: later items change it instead of stacking.
    static constexpr const char* kSharedBeautyName = "ol2_effectFilter01_0_108";

    explicit ZuParseEffectFilter(ZuAppMain* app) : ZuParseData(app) {}

    static ZuParseData* parseEffectFilter(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                          const char* sceneName, const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    float eyeLargeLeft = 0.00001f;
    float eyeLargeRight = 0.00001f;
    float faceSlim = 1.0f;
    float chinSlim = 1.0f;
    float chinUpSlim = 1.0f;
    float chinMidSlim = 1.0f;

private:
    void generateBeauty(const char* sceneName);
};
