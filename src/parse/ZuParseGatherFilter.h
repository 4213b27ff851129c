#pragma once

#include "parse/ZuParseData.h"

#include <rapidjson/document.h>

// A "filterGather" item: a named look by its subType, or a look from the
// curve tables of a filter file beside the package.
class ZuParseGatherFilter : public ZuParseData {
public:
    explicit ZuParseGatherFilter(ZuAppMain* app) : ZuParseData(app) {}
    ~ZuParseGatherFilter() override;

    static ZuParseData* parseGatherFilter(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                          const char* sceneName, const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    float deltas = 0.0f;
    float deltah = 0.0f;
    // malloc'ed tables of the filter file, null when absent.
    char* brightness = nullptr;
    char* contrast = nullptr;
    char* hsv = nullptr;
    int brightnessSize = 0;
    int contrastSize = 0;
    int hsvSize = 0;

private:
    // Reads directory + filterName + ".json"; false (logged) when unusable.
    bool readFilterFile(const char* directory, const char* filterName);
    bool hasTables() const { return brightness || contrast || hsv; }
    // The file's tables are complete: 256 RGB triples, 256 values.
    bool tablesComplete() const;
};
