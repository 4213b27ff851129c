// Triggers, terminators and reactions of package items: the parsed records,
// the patterns nodes build from them, matching of events pushed through the
// event manager, and the "audio" item.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuAnimateEvent.h"
#include "event/ZuEffectEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuPersonEvent.h"
#include "event/ZuReactEvent.h"
#include "event/ZuTriggerLists.h"
#include "node/sound/ZuSoundNode.h"
#include "parse/ZuParse.h"
#include "parse/ZuParseDataEvent.h"
#include "parse/ZuParseMgr.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuNodeTypes.h"
#include "support/EngineFixture.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <rapidjson/document.h>

#include <functional>
#include <string>
#include <unistd.h>

namespace {

// A node that plays and stops as its patterns say, with the play states of
// the animation nodes: 0 stopped, 3 asked to play. Playing announces
// "aniPlay" in the second pool, as animations do, so dependencies chain.
class TriggerNode : public ZuNode {
public:
    explicit TriggerNode(ZuAppMain* app) : ZuNode(app) {}
    void zuinit() override { listenEvent(); }
    void zudestroy() override {
        unlistenEvent();
        triggers.clearAll();
        ZuNode::zudestroy();
    }
    bool procEvent(ZuEvent* event) override {
        if (triggers.isInStartEventList(event) && state != 3 && state != 1) play("animation", nodeLoop);
        if (triggers.isInStopEventList(event, m_resUID) && state != 0) {
            state = 0;
            stops++;
        }
        if (ZuReactEvent* react = triggers.switchFor(event, m_resUID, m_sceneName, clip)) {
            if (react->loop == 0) {
                next = react->next;
                nextLoop = triggers.getAniLoopForName(next.c_str(), nodeLoop);
            }
            play(react->animation.c_str(), react->loop == 1);
        }
        return true;
    }
    void play(const char* newClip, bool newLoop) {
        state = 3;
        clip = newClip;
        clipLoop = newLoop;
        plays++;
        ZuAnimateEvent* played = new ZuAnimateEvent(m_sceneName.c_str());
        played->name = "aniPlay";
        played->animationName = m_name;
        played->personID = m_personID;
        played->resUID = m_resUID;
        app->getGlobalMgr()->getEventMgr()->pushEventToSecondPool(played);
    }

    ZuTriggerLists triggers;
    bool nodeLoop = true;
    int state = 0;
    int plays = 0;
    int stops = 0;
    qz::string clip;
    bool clipLoop = false;
    qz::string next;
    bool nextLoop = false;
};

// An item type of the test: one TriggerNode per item, patterns from its arrays.
class TriggerData : public ZuParseDataEvent {
public:
    explicit TriggerData(ZuAppMain* app) : ZuParseDataEvent(app) {}
    static ZuParseData* parse(ZuAppMain* app, const rapidjson::Value& value, int, const char*, const char* dir) {
        TriggerData* data = new TriggerData(app);
        ZuParse::parseBase(data, value, dir);
        ZuParse::parseEvent(data, value, dir);
        return data;
    }
    void generate(int newResUID, const char* sceneName, char*) override {
        resUID = newResUID;
        ZuNode* made = app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode("TriggerNode", sceneName,
                                                                                     name.c_str());
        auto* node = static_cast<TriggerNode*>(made);
        node->setresUID(resUID);
        node->setpersonID(personID);
        node->triggers.loadTrigEvents(*this, sceneName, personID, resUID);
        node->triggers.loadReactEvents(*this, sceneName, resUID);
        _addNode(node);
    }
};

class TriggerTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override { return {dir.path()}; }
    void SetUp() override {
        EngineTest::SetUp();
        host = app->getAppInter();
        nodes = app->getGlobalMgr()->getNodeMgr();
        parser = app->getGlobalMgr()->getParseMgr();
        events = app->getGlobalMgr()->getEventMgr();
        nodes->getCreator()->registCreateFunc("TriggerNode", zuCreateNodeOfType<TriggerNode>);
        parser->registDictionary("trigger", TriggerData::parse);
        host->createLogicSceneFull("s", 64, 64, 64, 64);
        frame();
    }
    void frame() {
        app->getGlobalMgr()->update(16.0f);
        app->directrender("");
    }
    void frames(int count) {
        for (int i = 0; i < count; i++) frame();
    }
    bool waitFor(const std::function<bool()>& done) {
        for (int i = 0; i < 200; i++) {
            frame();
            if (done()) return true;
            usleep(2000);
        }
        return false;
    }
    // Loads a package with this config.json and waits for its nodes.
    void load(const std::string& name, const std::string& config, int resUID, int slot) {
        dir.write(name + "/config.json", config);
        host->loadEffect("s", name.c_str(), resUID, slot);
        ASSERT_TRUE(waitFor([&] { return nodes->getNode(("s" + std::to_string(resUID)).c_str()) != nullptr; }));
    }
    TriggerNode* node(const char* name) { return dynamic_cast<TriggerNode*>(nodes->getNode(name)); }
    // A face event, as the person system raises it (pushed after the pool
    // exchange, so seen two frames later).
    void face(const char* name, int personID, const char* scene = "s") {
        ZuPersonEvent* event = new ZuPersonEvent(scene);
        event->name = name;
        event->personID = personID;
        events->pushEvent(event);
        frames(2);
    }
    void ready(int resUID, const char* scene = "s") {
        ZuEffectEvent* event = new ZuEffectEvent(scene, ZU_EVENT_EFFECT);
        event->name = "any";
        event->targetUid = resUID;
        event->resUID = resUID;
        event->state = 1;
        events->pushEvent(event);
        frames(2);
    }

    TempDir dir;
    ZuAppNative* host = nullptr;
    ZuNodeMgr* nodes = nullptr;
    ZuParseMgr* parser = nullptr;
    ZuEventMgr* events = nullptr;
};

ZuEvent* personEvent(const char* name, int personID) {
    ZuPersonEvent* event = new ZuPersonEvent("s");
    event->name = name;
    event->personID = personID;
    return event;
}

} // namespace

TEST(ParseEvent, ReadsTheThreeArraysAndReportsWhatItSkips) {
    rapidjson::Document item;
    item.Parse(R"({"id": "st",
        "triggeredBy": [{"category": "mouthOpen"}, 5,
                        {"category": "dependency", "dependsOn": "other", "event": "aniStop"},
                        {"category": 3, "event": "kept"}],
        "terminatedBy": {"category": "any"},
        "reactEvents": [{"event": "blink", "animation": "jump", "loop": 1, "next": "idle"}, "x"]})");
    ASSERT_FALSE(item.HasParseError());
    ZuParseDataEvent data(nullptr);
    LogCapture log;
    ZuParse::parseEvent(&data, item, "pkg/");

    ASSERT_EQ(data.triggeredBy.size(), 3u);
    EXPECT_EQ(data.triggeredBy[0].category, "mouthOpen");
    EXPECT_TRUE(data.triggeredBy[0].dependsOn.empty());
    EXPECT_EQ(data.triggeredBy[1].category, "dependency");
    EXPECT_EQ(data.triggeredBy[1].dependsOn, "other");
    EXPECT_EQ(data.triggeredBy[1].event, "aniStop");
    EXPECT_TRUE(data.triggeredBy[2].category.empty());  // the wrong-typed key only is dropped
    EXPECT_EQ(data.triggeredBy[2].event, "kept");
    EXPECT_TRUE(data.terminatedBy.empty());
    ASSERT_EQ(data.reactEvents.size(), 1u);
    EXPECT_EQ(data.reactEvents[0].animation, "jump");
    EXPECT_TRUE(data.reactEvents[0].loop.empty());
    EXPECT_EQ(data.reactEvents[0].next, "idle");

    // Every skip names the package, the item and the key.
    EXPECT_EQ(log.count("package pkg/, item 'st': an element of \"triggeredBy\" is not an object", ZU_LOG_WARN), 1);
    EXPECT_EQ(log.count("item 'st': \"category\" in \"triggeredBy\" is not a string", ZU_LOG_WARN), 1);
    EXPECT_EQ(log.count("item 'st': \"terminatedBy\" is not an array", ZU_LOG_WARN), 1);
    EXPECT_EQ(log.count("item 'st': \"loop\" in \"reactEvents\" is not a string", ZU_LOG_WARN), 1);
    EXPECT_EQ(log.count("an element of \"reactEvents\" is not an object", ZU_LOG_WARN), 1);

    // Records survive the copies the arrays make while growing.
    ZuParseDataEvent copy(nullptr);
    copy.triggeredBy = data.triggeredBy;
    EXPECT_EQ(copy.triggeredBy[1].dependsOn, "other");
}

TEST(TriggerLists, PatternsFollowTheCategory) {
    ZuTriggerLists lists;
    ZuParseDataEvent data(nullptr);
    ZuTriggeredBy any, face, dependency;
    any.category = "any";
    face.category = "mouthOpen";
    dependency.category = "dependency";
    dependency.dependsOn = "intro";
    dependency.event = "aniStop";
    data.triggeredBy.push_back(any);
    data.triggeredBy.push_back(face);
    data.triggeredBy.push_back(dependency);
    lists.loadTrigEvents(data, "s", 1, 9);
    ASSERT_EQ(lists.startCount(), 3u);
    auto it = lists.getStartList().begin();
    auto* ready = dynamic_cast<ZuEffectEvent*>(*it);
    ASSERT_NE(ready, nullptr);
    EXPECT_EQ(ready->type, ZU_EVENT_EFFECT);
    EXPECT_EQ(ready->name, "any");
    EXPECT_EQ(ready->state, 1);
    EXPECT_EQ(ready->resUID, 9);
    auto* person = dynamic_cast<ZuPersonEvent*>(*++it);
    ASSERT_NE(person, nullptr);
    EXPECT_EQ(person->type, ZU_EVENT_PERSON);
    EXPECT_TRUE(person->sceneName.empty());  // face events of every scene
    EXPECT_EQ(person->personID, 1);
    auto* animate = dynamic_cast<ZuAnimateEvent*>(*++it);
    ASSERT_NE(animate, nullptr);
    EXPECT_EQ(animate->sceneName, "s");
    EXPECT_EQ(animate->animationName, "intro");
    EXPECT_EQ(animate->name, "aniStop");
    lists.clearStartEvent();
    EXPECT_EQ(lists.startCount(), 0u);
}

TEST(TriggerLists, PackageReadyMatchesByPackageWhereTheRuleAsksForIt) {
    ZuTriggerLists lists;
    lists.pushEventToStartList(ZuTriggerLists::makeTriggerPattern("any", "", "", "s", 0, 5));
    lists.pushEventToStopList(ZuTriggerLists::makeTriggerPattern("any", "", "", "s", 0, 5));
    auto readyOf = [](int resUID, int state, const char* scene) {
        ZuEffectEvent* event = new ZuEffectEvent(scene, ZU_EVENT_EFFECT);
        event->name = "any";
        event->targetUid = resUID;
        event->state = state;
        return event;
    };
    ZuEffectEvent* own = readyOf(5, 1, "s");
    ZuEffectEvent* other = readyOf(6, 1, "s");
    ZuEffectEvent* elsewhere = readyOf(5, 1, "t");
    ZuEffectEvent* notReady = readyOf(5, 0, "s");
    EXPECT_TRUE(lists.isInStartEventList(other));  // any package of the scene
    EXPECT_FALSE(lists.isInStartEventList(elsewhere));
    EXPECT_TRUE(lists.isInStartEventListOfPackage(own, 5));
    EXPECT_FALSE(lists.isInStartEventListOfPackage(other, 5));
    EXPECT_FALSE(lists.isInStopEventList(other, 5));
    EXPECT_FALSE(lists.isInStopEventList(notReady, 5));
    EXPECT_TRUE(lists.isInStopEventList(own, 5));
    EXPECT_FALSE(lists.isInStopEventList(nullptr, 5));
    for (ZuEvent* event : {static_cast<ZuEvent*>(own), static_cast<ZuEvent*>(other),
                           static_cast<ZuEvent*>(elsewhere), static_cast<ZuEvent*>(notReady)})
        event->release();
}

TEST(TriggerLists, SwitchesNeedTheReactStateThisPackageAndANewClip) {
    ZuParseDataEvent data(nullptr);
    ZuReactEventBy jump, idle;
    jump.event = "blink";
    jump.animation = "jump";
    jump.loop = "0";
    jump.next = "idle";
    idle.event = "nod";
    idle.animation = "idle";
    idle.loop = "1";
    data.reactEvents.push_back(jump);
    data.reactEvents.push_back(idle);
    ZuTriggerLists lists;
    lists.loadReactEvents(data, "s", 3);
    EXPECT_EQ(lists.switchCount(), 0u);  // "reactState" 0
    data.reactState = 1;
    lists.loadReactEvents(data, "s", 3);
    ASSERT_EQ(lists.switchCount(), 2u);

    ZuEvent* blink = personEvent("blink", 2);
    ZuReactEvent* found = lists.switchFor(blink, 3, "s", "animation");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->animation, "jump");
    EXPECT_EQ(found->loop, 0);
    EXPECT_EQ(lists.switchFor(blink, 3, "s", "jump"), nullptr);  // already playing
    EXPECT_EQ(lists.switchFor(blink, 4, "s", "animation"), nullptr);
    EXPECT_EQ(lists.switchFor(blink, 3, "t", "animation"), nullptr);
    blink->release();

    EXPECT_TRUE(lists.getAniLoopForName("idle", false));
    EXPECT_FALSE(lists.getAniLoopForName("jump", true));
    EXPECT_FALSE(lists.getAniLoopForName("animation", false));  // the node's own flag
    EXPECT_TRUE(lists.getAniLoopForName("unknown", false));
    EXPECT_TRUE(lists.getAniLoopForName(nullptr, false));
}

TEST_F(TriggerTest, FaceEventsStartNodesOfTheirPersonOrAnyPerson) {
    load("faces", R"({"param": [
        {"type": "trigger", "id": "p1", "personid": "1", "triggeredBy": [{"category": "mouthOpen"}]},
        {"type": "trigger", "id": "p2", "personid": "2", "triggeredBy": [{"category": "mouthOpen"}]},
        {"type": "trigger", "id": "p0", "personid": "0", "triggeredBy": [{"category": "mouthOpen"}]},
        {"type": "trigger", "id": "none"}]})",
         1, 0);
    ASSERT_NE(node("p1"), nullptr);
    face("blink", 1);
    EXPECT_EQ(node("p1")->state, 0);
    face("mouthOpen", 2);
    EXPECT_EQ(node("p1")->state, 0);
    EXPECT_EQ(node("p2")->state, 3);
    EXPECT_EQ(node("p0")->state, 3);
    // A pattern built without a scene answers a face of another scene.
    face("mouthOpen", 1, "elsewhere");
    EXPECT_EQ(node("p1")->state, 3);
    EXPECT_EQ(node("p1")->clip, "animation");
    // Asked again while waiting to run: no second start.
    face("mouthOpen", 1);
    EXPECT_EQ(node("p1")->plays, 1);
    EXPECT_EQ(node("none")->plays, 0);  // no "triggeredBy": never starts by itself
}

TEST_F(TriggerTest, PackageReadyStartsNodesAndStopsOnlyItsOwn) {
    load("first", R"({"param": [
        {"type": "trigger", "id": "a", "triggeredBy": [{"category": "any"}]},
        {"type": "trigger", "id": "b", "triggeredBy": [{"category": "smile"}], "terminatedBy": [{"category": "any"}]}
        ]})",
         1, 0);
    // The package root says it is ready once its children are.
    ASSERT_TRUE(waitFor([&] { return node("a")->state == 3; }));
    face("smile", 1);
    ASSERT_EQ(node("b")->state, 3);
    ready(2);  // another package's readiness
    EXPECT_EQ(node("b")->state, 3);
    ready(1, "elsewhere");
    EXPECT_EQ(node("b")->state, 3);
    ready(1);
    EXPECT_EQ(node("b")->state, 0);
    EXPECT_EQ(node("b")->stops, 1);
}

TEST_F(TriggerTest, DependenciesChainInTheSamePass) {
    load("chain", R"({"param": [
        {"type": "trigger", "id": "first", "triggeredBy": [{"category": "wink"}]},
        {"type": "trigger", "id": "second",
         "triggeredBy": [{"category": "dependency", "dependsOn": "first", "event": "aniPlay"}]},
        {"type": "trigger", "id": "third",
         "triggeredBy": [{"category": "dependency", "dependsOn": "first", "event": "aniStop"}]}]})",
         1, 0);
    ZuEvent* wink = personEvent("wink", 1);
    events->pushEventToSecondPool(wink);
    frame();
    EXPECT_EQ(node("first")->state, 3);
    EXPECT_EQ(node("second")->state, 3);  // its "aniPlay" went round in the same update
    EXPECT_EQ(node("third")->state, 0);
}

TEST_F(TriggerTest, AnEventInBothListsPlaysThenStops) {
    load("both", R"({"param": [
        {"type": "trigger", "id": "n", "triggeredBy": [{"category": "blink"}],
         "terminatedBy": [{"category": "blink"}, {"category": "nod"}]}]})",
         1, 0);
    face("blink", 1);
    EXPECT_EQ(node("n")->plays, 1);
    EXPECT_EQ(node("n")->stops, 1);
    EXPECT_EQ(node("n")->state, 0);
    face("nod", 1);
    EXPECT_EQ(node("n")->stops, 1);  // already stopped
}

TEST_F(TriggerTest, ReactEventsSwitchClipsOnlyWithReactState) {
    const char* items = R"({"param": [
        {"type": "trigger", "id": "%s", "reactState": "%s",
         "reactEvents": [{"event": "blink", "animation": "jump", "loop": "0", "next": "idle"},
                         {"event": "nod", "animation": "idle", "loop": "1"},
                         {"event": "shake", "animation": "spin", "loop": "0", "next": "rest"}]}]})";
    char on[1024], off[1024];
    snprintf(on, sizeof on, items, "on", "1");
    snprintf(off, sizeof off, items, "off", "0");
    load("on", on, 1, 0);
    load("off", off, 2, 1);
    face("blink", 1);
    TriggerNode* reacting = node("on");
    EXPECT_EQ(reacting->clip, "jump");
    EXPECT_FALSE(reacting->clipLoop);
    EXPECT_EQ(reacting->next, "idle");
    EXPECT_TRUE(reacting->nextLoop);  // from the entry of "idle"
    EXPECT_EQ(node("off")->plays, 0);
    face("blink", 1);
    EXPECT_EQ(reacting->plays, 1);  // "jump" is playing already
    face("nod", 1);
    EXPECT_EQ(reacting->clip, "idle");
    EXPECT_TRUE(reacting->clipLoop);
    EXPECT_EQ(reacting->next, "idle");  // a looping clip keeps the next clip as it was
    face("shake", 1);
    EXPECT_EQ(reacting->next, "rest");
    EXPECT_TRUE(reacting->nextLoop);  // no entry for "rest"
}

TEST_F(TriggerTest, AudioItemsBuildSoundNodesThatReportPlaying) {
    LogCapture log;
    load("snd", R"({"param": [
        {"type": "audio", "id": "bgm", "file": "music/a.mp3", "loop": "1",
         "triggeredBy": [{"category": "any"}]},
        {"type": "audio", "id": "once", "file": "b.mp3", "loop": "0"},
        {"type": "audio", "id": "odd", "file": "c.mp3", "loop": "yes"},
        {"type": "audio", "id": "mute", "loop": "1"},
        {"type": "audio", "id": "bad", "file": 12}]})",
         7, 0);
    auto* bgm = dynamic_cast<ZuSoundNode*>(nodes->getNode("s_bgm_0_7"));
    ASSERT_NE(bgm, nullptr);
    EXPECT_EQ(bgm->getType(), "ZuSoundNode");
    EXPECT_EQ(bgm->getSoundName(), "snd/music/a.mp3");
    EXPECT_TRUE(bgm->getLoop());
    EXPECT_TRUE(bgm->isPlaying());
    EXPECT_EQ(bgm->getPlayCount(), 1);
    EXPECT_EQ(bgm->getParent(), nodes->getNode("s7"));
    EXPECT_EQ(log.count("play snd/music/a.mp3 (loop)", ZU_LOG_DEBUG), 1);
    auto* once = dynamic_cast<ZuSoundNode*>(nodes->getNode("s_once_0_7"));
    ASSERT_NE(once, nullptr);
    EXPECT_FALSE(once->getLoop());
    auto* odd = dynamic_cast<ZuSoundNode*>(nodes->getNode("s_odd_0_7"));
    ASSERT_NE(odd, nullptr);
    EXPECT_TRUE(odd->getLoop());  // anything but "0" loops
    EXPECT_EQ(nodes->getNode("s_mute_0_7"), nullptr);
    EXPECT_EQ(nodes->getNode("s_bad_0_7"), nullptr);
    EXPECT_EQ(log.count("package snd/, item 'mute': \"file\" is missing", ZU_LOG_WARN), 1);
    EXPECT_EQ(log.count("item 'bad': \"file\" is missing or not a string", ZU_LOG_WARN), 1);
    // Sound nodes answer no trigger: nothing replays when the package is ready.
    ready(7);
    EXPECT_EQ(bgm->getPlayCount(), 1);
    bgm->stop();
    EXPECT_FALSE(bgm->isPlaying());
}

TEST_F(TriggerTest, AudioItemsAreOffWhenTheConfigurationSaysSo) {
    EXPECT_TRUE(parser->hasRegist("audio"));
    app->getGlobalMgr()->getConfig()->filter.audio = 0;
    parser->init();
    parser->registDictionary("trigger", TriggerData::parse);
    EXPECT_FALSE(parser->hasRegist("audio"));
    load("quiet", R"({"param": [{"type": "audio", "id": "bgm", "file": "a.mp3"},
                                {"type": "trigger", "id": "t"}]})",
         3, 0);
    EXPECT_NE(node("t"), nullptr);
    EXPECT_EQ(nodes->getNode("s_bgm_0_3"), nullptr);
}
