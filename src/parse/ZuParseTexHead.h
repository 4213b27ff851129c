#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "parse/ZuParseDataEvent.h"

#include <rapidjson/document.h>

class ZuParseAnimate;

// One entry of a skeletal item's "texHead" list: which bone of which
// skeleton carries a host head picture, and its mask, frame and size.
struct TEXHEAD {
    float frameWidth = 0.0f;
    float frameHeight = 0.0f;
    qz::string spineName;
    qz::string id;
    qz::string boneName;
    qz::string frameName;
    qz::string maskName;
};

// The head pictures of a skeletal item. generate mounts a ZuHeadNode on
// every skeletal sticker of the named skeleton for which the host handed in
// a picture (a texture named skeleton name + bone name).
class ZuParseTexHead : public ZuParseDataEvent {
public:
    explicit ZuParseTexHead(ZuAppMain* app) : ZuParseDataEvent(app) {}

    // Reads value's "texHead" into a new object handed to owner.
    static void parseTexHead(ZuAppMain* app, ZuParseAnimate* owner, const rapidjson::Value& value, const char* path);
    // Entries of value's "texHead"; wrong kinds are skipped with a log line.
    static void readEntries(const rapidjson::Value& value, const char* path, qz::array<TEXHEAD>& out);
    void generate(int newResUID, const char* sceneName, char* path) override;

    qz::array<TEXHEAD> entries;
    qz::string packagePath;
};
