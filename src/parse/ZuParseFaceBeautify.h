#pragma once

#include "parse/ZuParseData.h"

#include <rapidjson/document.h>

// A "faceBeautify" item: one skin smoothing and whitening node for person 1.
class ZuParseFaceBeautify : public ZuParseData {
public:
    explicit ZuParseFaceBeautify(ZuAppMain* app) : ZuParseData(app) {}

    // "adjustSmooth" and "adjustColor" are text holding a number.
    static ZuParseData* parseFaceBeautify(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                          const char* sceneName, const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    bool hasSmooth = false;
    float adjustSmooth = 0.0f;
    // Read and kept; the node takes its whitening from the host alone.
    float adjustColor = 0.0f;
};
