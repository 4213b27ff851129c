#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "scene/ZuNode.h"

class ZuEvent;

// An animation of the package that said it is running (state 1) or not.
struct AnimStateRes {
    qz::string name;
    int state = 0;
};

// Removes its package once the package's "timeout" (seconds) has passed and
// no animation of it still reports itself running. It first hides and sends
// a time-out event; the deletion happens when that event comes back, so that
// it never runs inside the frame walk that is visiting the package.
class ZuTimeOutNode : public ZuNode {
public:
    explicit ZuTimeOutNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    bool procEvent(ZuEvent* event) override;

    void setTimeOut(int seconds) { timeout = seconds; }
    int getTimeOut() const { return timeout; }
    void setOwnerScene(const char* name) { ownerScene = name ? name : ""; }
    float getElapsed() const { return elapsed; }

    // Records an animation's state: an existing name takes the new state; a
    // new name is recorded only when it starts running.
    void putResetAnimState(const char* animationName, int state);
    // True when no recorded animation is running.
    bool isStopAnim() const;

private:
    int timeout = 0;
    qz::string ownerScene;
    float elapsed = 0.0f;
    qz::array<AnimStateRes> states;
};
