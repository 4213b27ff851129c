#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"
#include "parse/SpineHeadRes.h"

// Loads an effect package into a scene: claims its slot, parses its
// config.json (on the render thread, or on the load thread when the effect
// queue hands it out) and reports the outcome with a parse event.
class ZuOperateParse : public ZuOpLoadBase {
public:
    ZuOperateParse(ZuAppMain* app, int resUID, const char* scene, const char* path, int slot,
                   const char* gameName = "");
    void process(float delta) override;

    // Takes the host's head pictures (its array is left empty).
    void takeHeads(qz::array<SpineHeadRes>* heads);
    int getResUID() const { return resUID; }
    const qz::string& getPath() const { return path; }

private:
    int resUID;
    qz::string scene;
    qz::string path;
    qz::string gameName;
    int slot;
    qz::array<SpineHeadRes> heads;
};
