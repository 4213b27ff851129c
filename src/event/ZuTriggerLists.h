#pragma once

#include "basesys/qzList.h"
#include "basesys/qzString.h"

class ZuEvent;
class ZuParseDataEvent;
class ZuReactEvent;

// The event patterns a node reacts to: a start list, a stop list and a list
// of clip switches. A package item's "triggeredBy", "terminatedBy" and
// "reactEvents" become patterns here; the node's procEvent asks which list
// a passing event matches and changes its own play state. The patterns are
// owned here and released with the lists.
class ZuTriggerLists {
public:
    ZuTriggerLists() = default;
    ~ZuTriggerLists();
    ZuTriggerLists(const ZuTriggerLists&) = delete;
    ZuTriggerLists& operator=(const ZuTriggerLists&) = delete;

    // Each takes over the caller's reference; null is ignored.
    void pushEventToStartList(ZuEvent* pattern);
    void pushEventToStopList(ZuEvent* pattern);
    void pushEventToSwitchAniList(ZuEvent* pattern);
    void clearStartEvent();
    void clearStopEvent();
    void clearSwitchEvent();
    void clearAll();

    // Start and stop patterns of an item, for a node of this scene, person
    // and package.
    void loadTrigEvents(const ZuParseDataEvent& data, const char* sceneName, int personID, int resUID);
    // Switch patterns of an item; none unless its "reactState" is above 0.
    void loadReactEvents(const ZuParseDataEvent& data, const char* sceneName, int resUID);
    // The pattern of one trigger or terminator entry (count 1): an animation
    // event for "dependency", a package-ready event for "any", otherwise a
    // face event named by the category that matches in every scene.
    static ZuEvent* makeTriggerPattern(const qz::string& category, const qz::string& dependsOn,
                                       const qz::string& eventName, const char* sceneName, int personID,
                                       int resUID);

    // Any pattern's isEqual, in list order.
    bool isInStartEventList(ZuEvent* event) const;
    // As above, but a package-ready event (type 55) only counts for the
    // node's own package and with the pattern's state.
    bool isInStartEventListOfPackage(ZuEvent* event, int resUID) const;
    // With the package-ready rule above.
    bool isInStopEventList(ZuEvent* event, int resUID) const;
    // The first switch pattern that matches, or null.
    ZuReactEvent* isInSwitchAniEventList(ZuEvent* event) const;
    // The switch a node of this package and scene, now playing currentClip,
    // should make for the event; null when there is none to make.
    ZuReactEvent* switchFor(ZuEvent* event, int resUID, const qz::string& sceneName,
                            const qz::string& currentClip) const;
    // Whether clip loops: the node's own flag for its default clip
    // "animation", else its switch entry's "loop", else true.
    bool getAniLoopForName(const char* clip, bool nodeLoop) const;

    uint32_t startCount() const { return startList.size(); }
    uint32_t stopCount() const { return stopList.size(); }
    uint32_t switchCount() const { return switchList.size(); }
    const qz::list<ZuEvent*>& getStartList() const { return startList; }
    const qz::list<ZuEvent*>& getStopList() const { return stopList; }
    const qz::list<ZuEvent*>& getSwitchList() const { return switchList; }

private:
    static bool matches(ZuEvent* pattern, ZuEvent* event, bool readyOfOwnPackageOnly, int resUID);
    static bool anyMatches(const qz::list<ZuEvent*>& list, ZuEvent* event, bool readyOfOwnPackageOnly,
                           int resUID);
    static void releaseAll(qz::list<ZuEvent*>& list);

    qz::list<ZuEvent*> startList;
    qz::list<ZuEvent*> stopList;
    qz::list<ZuEvent*> switchList;
};
