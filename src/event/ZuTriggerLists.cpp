#include "event/ZuTriggerLists.h"

#include "event/ZuAnimateEvent.h"
#include "event/ZuEffectEvent.h"
#include "event/ZuPersonEvent.h"
#include "event/ZuReactEvent.h"
#include "parse/ZuParseDataEvent.h"

#include <cstdlib>

ZuTriggerLists::~ZuTriggerLists() { clearAll(); }

void ZuTriggerLists::pushEventToStartList(ZuEvent* pattern) {
    if (pattern) startList.push_back(pattern);
}

void ZuTriggerLists::pushEventToStopList(ZuEvent* pattern) {
    if (pattern) stopList.push_back(pattern);
}

void ZuTriggerLists::pushEventToSwitchAniList(ZuEvent* pattern) {
    if (pattern) switchList.push_back(pattern);
}

void ZuTriggerLists::releaseAll(qz::list<ZuEvent*>& list) {
    for (auto it = list.begin(); it != list.end(); ++it) (*it)->release();
    list.clear();
}

void ZuTriggerLists::clearStartEvent() { releaseAll(startList); }
void ZuTriggerLists::clearStopEvent() { releaseAll(stopList); }
void ZuTriggerLists::clearSwitchEvent() { releaseAll(switchList); }

void ZuTriggerLists::clearAll() {
    clearStartEvent();
    clearStopEvent();
    clearSwitchEvent();
}

ZuEvent* ZuTriggerLists::makeTriggerPattern(const qz::string& category, const qz::string& dependsOn,
                                            const qz::string& eventName, const char* sceneName, int personID,
                                            int resUID) {
    if (category == "dependency") {
        ZuAnimateEvent* pattern = new ZuAnimateEvent(sceneName ? sceneName : "");
        pattern->animationName = dependsOn;
        pattern->name = eventName;
        pattern->personID = personID;
        pattern->resUID = resUID;
        return pattern;
    }
    if (category == "any") {
        ZuEffectEvent* pattern = new ZuEffectEvent(sceneName ? sceneName : "", ZU_EVENT_EFFECT);
        pattern->name = "any";
        pattern->state = 1;
        pattern->resUID = resUID;
        return pattern;
    }
    // No scene: a face event of any scene matches.
    ZuPersonEvent* pattern = new ZuPersonEvent("");
    pattern->name = category;
    pattern->personID = personID;
    pattern->resUID = resUID;
    return pattern;
}

void ZuTriggerLists::loadTrigEvents(const ZuParseDataEvent& data, const char* sceneName, int personID,
                                    int resUID) {
    for (uint32_t i = 0; i < data.triggeredBy.size(); i++) {
        const ZuTriggeredBy& entry = data.triggeredBy[i];
        pushEventToStartList(
            makeTriggerPattern(entry.category, entry.dependsOn, entry.event, sceneName, personID, resUID));
    }
    for (uint32_t i = 0; i < data.terminatedBy.size(); i++) {
        const ZuTerminatedBy& entry = data.terminatedBy[i];
        pushEventToStopList(
            makeTriggerPattern(entry.category, entry.dependsOn, entry.event, sceneName, personID, resUID));
    }
}

void ZuTriggerLists::loadReactEvents(const ZuParseDataEvent& data, const char* sceneName, int resUID) {
    if (data.reactState <= 0) return;
    for (uint32_t i = 0; i < data.reactEvents.size(); i++) {
        const ZuReactEventBy& entry = data.reactEvents[i];
        ZuReactEvent* pattern = new ZuReactEvent(sceneName ? sceneName : "");
        pattern->name = entry.event;
        pattern->animation = entry.animation;
        pattern->next = entry.next;
        pattern->loop = atoi(entry.loop.c_str());
        pattern->resUID = resUID;
        pushEventToSwitchAniList(pattern);
    }
}

// A package-ready event (type 55 on both sides) is asked the other way round
// and must also name this package and carry the pattern's state.
bool ZuTriggerLists::matches(ZuEvent* pattern, ZuEvent* event, bool readyOfOwnPackageOnly, int resUID) {
    if (readyOfOwnPackageOnly && pattern->type == ZU_EVENT_EFFECT && event->type == ZU_EVENT_EFFECT) {
        auto* ready = dynamic_cast<ZuEffectEvent*>(event);
        auto* wanted = dynamic_cast<ZuEffectEvent*>(pattern);
        return ready && wanted && ready->isEqual(pattern) && ready->targetUid == resUID &&
               ready->state == wanted->state;
    }
    return pattern->isEqual(event);
}

bool ZuTriggerLists::anyMatches(const qz::list<ZuEvent*>& list, ZuEvent* event, bool readyOfOwnPackageOnly,
                                int resUID) {
    if (!event) return false;
    for (auto it = list.begin(); it != list.end(); ++it)
        if (matches(*it, event, readyOfOwnPackageOnly, resUID)) return true;
    return false;
}

bool ZuTriggerLists::isInStartEventList(ZuEvent* event) const { return anyMatches(startList, event, false, -1); }

bool ZuTriggerLists::isInStartEventListOfPackage(ZuEvent* event, int resUID) const {
    return anyMatches(startList, event, true, resUID);
}

bool ZuTriggerLists::isInStopEventList(ZuEvent* event, int resUID) const {
    return anyMatches(stopList, event, true, resUID);
}

ZuReactEvent* ZuTriggerLists::isInSwitchAniEventList(ZuEvent* event) const {
    if (!event) return nullptr;
    for (auto it = switchList.begin(); it != switchList.end(); ++it)
        if ((*it)->isEqual(event)) return dynamic_cast<ZuReactEvent*>(*it);
    return nullptr;
}

ZuReactEvent* ZuTriggerLists::switchFor(ZuEvent* event, int resUID, const qz::string& sceneName,
                                        const qz::string& currentClip) const {
    ZuReactEvent* pattern = isInSwitchAniEventList(event);
    if (!pattern || pattern->resUID != resUID || !(pattern->sceneName == sceneName)) return nullptr;
    if (pattern->animation == currentClip) return nullptr;
    return pattern;
}

bool ZuTriggerLists::getAniLoopForName(const char* clip, bool nodeLoop) const {
    if (!clip) return true;
    if (qz::string("animation") == clip) return nodeLoop;
    for (auto it = switchList.begin(); it != switchList.end(); ++it) {
        auto* react = dynamic_cast<ZuReactEvent*>(*it);
        if (react && react->animation == clip) return react->loop == 1;
    }
    return true;
}
