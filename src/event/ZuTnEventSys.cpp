#include "event/ZuTnEventSys.h"

#include "event/ZuAnimateEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuGameOver.h"
#include "event/ZuModelPickUpEvent.h"
#include "event/ZuParseEvent.h"
#include "event/ZuPersonEvent.h"
#include "event/ZuPlayActionDoneEvent.h"
#include "event/ZuTimeOutEvent.h"

namespace {
// Person event types that reach onPersonAction: the expressions a host can
// react to (eyes, mouth, head turns and their combinations).
bool isHostAction(int type) {
    static const int kTypes[] = {10, 11, 13, 14, 17, 19, 20, 21, 23, 24, 26, 27, 29, 30, 31, 32, 33, 34, 35};
    for (int t : kTypes)
        if (t == type) return true;
    return false;
}
constexpr int kEyeBlinkLeft = 10, kEyeBlinkRight = 13, kMouthOpen = 17, kMouthClose = 18;
} // namespace

void ZuTnEventSys::init() {
    ZuEventMgr* events = eventMgr();
    if (!events || registered) return;
    events->registProcer(this);
    registered = true;
}

void ZuTnEventSys::destroy() {
    if (registered)
        if (ZuEventMgr* events = eventMgr()) events->unregistProcer(this);
    registered = false;
    clear();
}

void ZuTnEventSys::clear() {
    onAnimateComplete = nullptr;
    onEffectLoaded = nullptr;
    onEffectEnd = nullptr;
    onMouthOpen = nullptr;
    onEyeBlink = nullptr;
    onPersonAction = nullptr;
    onPickChange = nullptr;
    onGameStop = nullptr;
    onActionDone = nullptr;
    onModelPickUp = nullptr;
    hostValue1 = nullptr;
    hostValue2 = nullptr;
}

void ZuTnEventSys::personEvent(ZuEvent* event) {
    auto* person = dynamic_cast<ZuPersonEvent*>(event);
    if (!person) return;
    if ((event->type == kMouthOpen || event->type == kMouthClose) && onMouthOpen)
        onMouthOpen(hostValue1, hostValue2, person->personID, event->type == kMouthOpen);
    if ((event->type == kEyeBlinkLeft || event->type == kEyeBlinkRight) && onEyeBlink)
        onEyeBlink(hostValue1, hostValue2, person->personID, true);
    if (isHostAction(event->type) && onPersonAction)
        onPersonAction(hostValue1, hostValue2, person->personID, event->name.c_str());
}

bool ZuTnEventSys::procEvent(ZuEvent* event) {
    if (!event || !hostValue1 || !hostValue2) return true;
    const char* scene = event->sceneName.c_str();
    switch (event->type) {
    case ZU_EVENT_ANIMATE: {
        auto* animate = static_cast<ZuAnimateEvent*>(event);
        if (event->name == "aniComplete" && onAnimateComplete)
            onAnimateComplete(hostValue1, hostValue2, animate->animationName.c_str(), animate->resourceId, scene);
        break;
    }
    case ZU_EVENT_TIMEOUT:
        if (onEffectEnd) onEffectEnd(hostValue1, hostValue2, scene, static_cast<ZuTimeOutEvent*>(event)->packageResUID);
        break;
    case ZU_EVENT_PARSE: {
        auto* parsed = static_cast<ZuParseEvent*>(event);
        if (onEffectLoaded) onEffectLoaded(hostValue1, hostValue2, scene, parsed->parsedResUID, parsed->success ? 1 : 0);
        break;
    }
    case ZU_EVENT_GAME_OVER:
        if (onGameStop) onGameStop(hostValue1, hostValue2, "", 0, static_cast<ZuGameOver*>(event)->score);
        break;
    case ZU_EVENT_PLAY_ACTION_DONE: {
        auto* done = static_cast<ZuPlayActionDoneEvent*>(event);
        if (onActionDone) onActionDone(hostValue1, hostValue2, scene, done->actionName.c_str(), static_cast<int>(done->value));
        break;
    }
    case ZU_EVENT_MODEL_PICK_UP:
        if (onModelPickUp)
            onModelPickUp(hostValue1, hostValue2, scene, static_cast<ZuModelPickUpEvent*>(event)->modelName.c_str());
        break;
    default:
        if (event->type >= 9 && event->type <= 35) personEvent(event);
        break;
    }
    return true;
}
