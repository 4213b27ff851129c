#pragma once

#include "parse/ZuParseData.h"

#include <rapidjson/document.h>

// A "distortion" item: a round or oval lens on one landmark of each face.
// All keys hold numbers as text: "index" (ten times the standard landmark
// index), "intensity", "radius_x" and "radius_y" (factors of the face size;
// nearly equal radii make a round lens), "disappearAngle" (kept, unused).
class ZuParseDistortion : public ZuParseData {
public:
    explicit ZuParseDistortion(ZuAppMain* app) : ZuParseData(app) {}

    // Null (logged) when a key the lens needs is missing or unreadable, or
    // the landmark is no standard index.
    static ZuParseData* parseDistortion(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                        const char* sceneName, const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    bool isCircle() const;

    int bindIndex = 0;
    float intensity = 0.0f;
    float radiusX = 0.0f;
    float radiusY = 0.0f;
    int disappearAngle = 0;
};
