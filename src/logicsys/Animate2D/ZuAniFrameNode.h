#pragma once

#include "event/ZuTriggerLists.h"
#include "logicsys/Animate2D/tANIPOSMODE.h"
#include "render/math/ZuMat4.h"
#include "scene/ZuNode.h"

class ZuAnimateFrame;
class ZuMaterial;
class ZuPerson;
class ZuRenderMesh;

// A flip-book sticker on one textured quad: on the whole screen, along a
// screen edge, or pinned to a face point and sized by the face. It is built
// hidden and stopped, plays when an event of its start list arrives and
// stops on its stop list or at the end of a run that does not loop.
class ZuAniFrameNode : public ZuNode {
public:
    enum { STATE_STOPPED = 0, STATE_PLAYING = 1, STATE_PAUSED = 2 };

    explicit ZuAniFrameNode(ZuAppMain* app);

    bool procEvent(ZuEvent* event) override;
    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    void render() override;
    bool isReady() override;

    void play();
    void pause();
    void stop();
    void complete();
    void reset();

    // Retains the animation; the previous one is destroyed.
    void setAinFrame(ZuAnimateFrame* animate);
    ZuAnimateFrame* getAniFrame() const { return aniFrame; }

    // The lists own what is pushed.
    void pushEventToStartList(ZuEvent* event) { triggers.pushEventToStartList(event); }
    void pushEventToStopList(ZuEvent* event) { triggers.pushEventToStopList(event); }
    void clearStartEvent() { triggers.clearStartEvent(); }
    void clearStopEvent() { triggers.clearStopEvent(); }
    ZuTriggerLists& getTriggers() { return triggers; }

    void setaniName(const char* name) { aniName = name ? name : ""; }
    void setisScreen(bool value) { isScreen = value; }
    void setisFaceMask(bool value) { isFaceMask = value; }
    void setposmode(tANIPOSMODE mode) { posMode = mode; }
    void setcfgoffx(float value) { cfgOffX = value; }
    void setcfgoffy(float value) { cfgOffY = value; }
    void setcfgsx(float value) { cfgSX = value; }
    void setcfgsy(float value) { cfgSY = value; }
    void setcfgrot(bool value) { cfgRot = value; }
    void setcfgbindindex(int index) { bindIndex = index; }
    void setloop(bool value) { loop = value; }

    int getPlayState() const { return playState; }
    tANIPOSMODE getposmode() const { return posMode; }
    const qz::string& getaniName() const { return aniName; }
    bool getisScreen() const { return isScreen; }
    bool getisFaceMask() const { return isFaceMask; }
    float getcfgoffx() const { return cfgOffX; }
    float getcfgoffy() const { return cfgOffY; }
    float getcfgsx() const { return cfgSX; }
    float getcfgsy() const { return cfgSY; }
    bool getcfgrot() const { return cfgRot; }
    int getcfgbindindex() const { return bindIndex; }
    bool getloop() const { return loop; }
    float getDisplayWidth() const { return displayWidth; }
    float getDisplayHeight() const { return displayHeight; }

private:
    void innerUpdate(float seconds);
    void refreshPosition();
    ZuPerson* findPerson() const;
    bool personExists() const;

    float displayWidth = 512.0f;
    float displayHeight = 512.0f;
    int playState = STATE_STOPPED;
    tANIPOSMODE posMode = ANIPOS_NONE;
    bool isFaceMask = false;
    bool isScreen = false;
    qz::string aniName;
    float cfgSX = 0.0f, cfgSY = 0.0f, cfgOffX = 0.0f, cfgOffY = 0.0f;
    bool cfgRot = false;
    int bindIndex = 0;
    bool loop = false;
    ZuTriggerLists triggers;
    ZuAnimateFrame* aniFrame = nullptr;
    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    ZuMat4 poseCopy;
};
