#pragma once

#include "operate/ZuOperateCreateOutSteam.h"

// Adds a named CPU output whose buffer the host reads; an own size replaces
// the camera's, and it may start intercepted (recording nothing).
class ZuOperateCreateOutSteamDataSwap : public ZuOperateCreateOutSteam {
public:
    ZuOperateCreateOutSteamDataSwap(ZuAppMain* app, const char* scene, const char* nodeName, OUTSTEAMTYPE format,
                                    bool mirror, bool invert, int width = 0, int height = 0, bool intercept = false)
        : ZuOperateCreateOutSteam(app, scene, format, mirror, invert), nodeName(nodeName ? nodeName : ""),
          width(width), height(height), intercept(intercept) {}
    void process(float delta) override;

private:
    qz::string nodeName;
    int width;
    int height;
    bool intercept;
};
