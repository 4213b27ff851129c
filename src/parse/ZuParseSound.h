#pragma once

#include "basesys/qzString.h"
#include "parse/ZuParseDataEvent.h"

#include <rapidjson/document.h>

// An "audio" item: a ZuSoundNode for one sound file of the package, started
// as soon as it is built. Its event arrays are read and kept.
class ZuParseSound : public ZuParseDataEvent {
public:
    explicit ZuParseSound(ZuAppMain* app) : ZuParseDataEvent(app) {}

    // "file" (a path inside the package) is required; "loop" is text, and
    // anything but "0" loops.
    static ZuParseData* parseSound(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                   const char* sceneName, const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    qz::string file;
    bool loopSound = false;
};
