#include "scene/ZuTimeOutNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEventMgr.h"
#include "event/ZuResetTimeStateEvent.h"
#include "event/ZuTimeOutEvent.h"
#include "scene/ZuNodeMgr.h"

namespace {

// A frame this long is a stall (a paused app, a debugger): it must not use
// up a package's time at once.
const float kMaxFrameDelta = 2000.0f;

} // namespace

ZuTimeOutNode::ZuTimeOutNode(ZuAppMain* app) : ZuNode(app) { setType("ZuTimeOutNode"); }

void ZuTimeOutNode::zuinit() {
    if (ownerScene.empty()) ownerScene = m_sceneName;
    listenEvent();
}

void ZuTimeOutNode::zudestroy() {
    unlistenEvent();
    states.clear();
    ZuNode::zudestroy();
}

void ZuTimeOutNode::update(float delta) {
    if (delta > kMaxFrameDelta) return;
    ZuNode::update(delta);
    if (timeout < 1) return;
    elapsed += delta;
    if (!isVisible() || !isStopAnim() || elapsed <= timeout * 1000.0f) return;
    setVisible(false);
    ZuEventMgr* events = eventMgr();
    if (!events) return;
    ZuTimeOutEvent* event = new ZuTimeOutEvent(ownerScene.c_str());
    event->resUID = m_resUID;
    event->packageResUID = m_resUID;
    if (!events->pushEvent(event)) event->release();
}

bool ZuTimeOutNode::procEvent(ZuEvent* event) {
    if (!event || !(event->sceneName == ownerScene)) return true;
    if (event->type == ZU_EVENT_TIMEOUT) {
        ZuNodeMgr* nodes = nodeMgr();
        // This node is among those deleted: nothing of it is used afterwards.
        if (nodes) nodes->delNodeByResID(event->resUID);
    } else if (event->type == ZU_EVENT_RESET_TIME_STATE) {
        ZuResetTimeStateEvent* reset = static_cast<ZuResetTimeStateEvent*>(event);
        putResetAnimState(reset->animationName.c_str(), reset->state);
    }
    return true;
}

void ZuTimeOutNode::putResetAnimState(const char* animationName, int state) {
    if (!animationName) return;
    for (uint32_t i = 0; i < states.size(); i++) {
        if (states[i].name == animationName) {
            states[i].state = state;
            return;
        }
    }
    if (state != 1) return;
    AnimStateRes entry;
    entry.name = animationName;
    entry.state = state;
    states.push_back(entry);
}

bool ZuTimeOutNode::isStopAnim() const {
    for (uint32_t i = 0; i < states.size(); i++)
        if (states[i].state == 1) return false;
    return true;
}
