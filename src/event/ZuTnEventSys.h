#pragma once

#include "event/ZuEventProc.h"

// Turns engine events into the host's callbacks. Every callback gets the
// two host values first (the host's native layer binds them, typically its
// VM and its listener object) and runs on the engine's frame thread, inside
// the event manager's update: a host that needs its UI thread marshals the
// call itself. A callback that is not bound is skipped.
class ZuTnEventSys : public ZuEventProc {
public:
    using AnimateComplete = void (*)(void*, void*, const char* animation, int resourceId, const char* scene);
    using EffectLoaded = void (*)(void*, void*, const char* scene, int resUID, int success);
    using EffectEnd = void (*)(void*, void*, const char* scene, int resUID);
    using PersonFlag = void (*)(void*, void*, int person, bool on);
    using PersonAction = void (*)(void*, void*, int person, const char* eventName);
    using PickChange = void (*)(void*, void*, const char* scene, const char* animation, int released);
    using GameStop = void (*)(void*, void*, const char* empty, int zero, int score);
    using ActionDone = void (*)(void*, void*, const char* scene, const char* action, int value);
    using ModelPickUp = void (*)(void*, void*, const char* scene, const char* model);

    explicit ZuTnEventSys(ZuAppMain* app) : ZuEventProc(app) {}

    // Registers with the event manager; destroy unregisters and clears all.
    void init();
    void destroy();
    // Nulls every callback and host value.
    void clear();
    void update(float) {}
    void bindHost(void* first, void* second) {
        hostValue1 = first;
        hostValue2 = second;
    }
    // Always lets the event pass.
    bool procEvent(ZuEvent* event) override;

    AnimateComplete onAnimateComplete = nullptr;
    EffectLoaded onEffectLoaded = nullptr;
    EffectEnd onEffectEnd = nullptr;
    PersonFlag onMouthOpen = nullptr;
    PersonFlag onEyeBlink = nullptr;
    PersonAction onPersonAction = nullptr;
    PickChange onPickChange = nullptr;
    GameStop onGameStop = nullptr;
    ActionDone onActionDone = nullptr;
    ModelPickUp onModelPickUp = nullptr;

private:
    void personEvent(ZuEvent* event);

    void* hostValue1 = nullptr;
    void* hostValue2 = nullptr;
    bool registered = false;
};
