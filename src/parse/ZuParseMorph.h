#pragma once

#include "basesys/qzString.h"
#include "parse/ZuParseData.h"

#include <rapidjson/document.h>

class ZuNode;

// A "morph" item: a face shape by name ("mode"). On the AS back end the
// shapes are grid morphs of person 1 and the slim modes the beauty warp; on
// ST and FP the bear shapes become small-face warps. Numbers are text:
// "adjust" (the strength, 0..1), "bulgeX"/"bulgeY" (8 each) and
// "bulgeCircle" (seconds, 1.2) for the swelling "bulge" mode.
class ZuParseMorph : public ZuParseData {
public:
    explicit ZuParseMorph(ZuAppMain* app) : ZuParseData(app) {}

    // Null (logged) for an item without a "mode" or with unreadable numbers.
    static ZuParseData* parseMorph(ZuAppMain* app, const rapidjson::Value& value, int resUID, const char* sceneName,
                                   const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    // The grid morph type of an AS shape name, null for none.
    static const char* asMorphType(const char* mode);
    static bool isSlimMode(const char* mode);

    qz::string mode;
    float adjust = 0.0f;
    float bulgeX[8] = {};
    float bulgeY[8] = {};
    float bulgeCircle = 1.2f;
    // Read for completeness; no shape uses them.
    float adjust2 = 0.0f, adjust3 = 0.0f, adjust4 = 0.0f, shortValue = 0.0f;

private:
    void generateAS(const char* sceneName);
    void generateSmallFaces(const char* sceneName);
    void addSlimBeauty(const char* sceneName);
    ZuNode* create(const char* type, const char* sceneName, int index);
};
