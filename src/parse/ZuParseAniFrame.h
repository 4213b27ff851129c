#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "logicsys/Animate2D/tANIPOSMODE.h"
#include "parse/ZuParseDataEvent.h"

#include <rapidjson/document.h>

class ZuAniFrameNode;

// A flip-book "anim" item: its images or atlases, placement and rate, and
// the triggers that start and stop it. generate builds one ZuAniFrameNode
// for a screen placement or a chosen person, else one for each of the four
// persons a scene tracks.
class ZuParseAniFrame : public ZuParseDataEvent {
public:
    explicit ZuParseAniFrame(ZuAppMain* app) : ZuParseDataEvent(app) {}

    static ZuParseData* parseAniFrame(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                      const char* sceneName, const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    qz::array<qz::string> images;
    qz::array<qz::string> plists;
    qz::string mode;
    tANIPOSMODE posMode = ANIPOS_NONE;
    bool isScreen = false;
    bool isFaceMask = false;
    float offX = 0.0f, offY = 0.0f;
    float scaleX = 0.0f, scaleY = 0.0f;
    bool offsetSet = false, scaleSet = false;
    bool rotate = false;
    float fps = 25.0f;
    int bindIndex = 0;
    bool hasPlayIndex = false;

private:
    ZuAniFrameNode* buildNode(int personID, const char* sceneName, const char* directory);
};
