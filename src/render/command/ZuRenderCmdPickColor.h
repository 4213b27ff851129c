#pragma once

#include "basesys/qzString.h"
#include "render/command/ZuRenderCmd.h"

class ZuAppMain;

// Reads the pick pass's pixel under a touch and reports the object id it
// holds as a pick event. Coordinates must lie in 1..719 x 1..1279, the pick
// target's fixed size; the cleared colour 0xFFFFFFFF means nothing was hit.
class ZuRenderCmdPickColor : public ZuRenderCmd {
public:
    ZuRenderCmdPickColor(ZuAppMain* app, int x, int y, const char* nodeName)
        : x(x), y(y), app(app), nodeName(nodeName) {}
    void render() override;
    unsigned getId() const { return id; }

private:
    int x, y;
    unsigned id = 0xFFFFFFFFu;
    ZuAppMain* app;
    qz::string nodeName;
};
