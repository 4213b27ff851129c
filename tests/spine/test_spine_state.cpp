// Animation state: tracks, cross-fades, queues, listeners and events.
#include "SpineTestSupport.h"

#include <cmath>
#include <string>
#include <vector>

using namespace spinetest;

namespace {

// "a": bone b 0 -> 90 degrees over 1 s. "c": b held at -60 (no duration).
// "ev": events e0, e5, e10 at 0, 0.5 and 1 over a 1 s animation.
const char* kStateSkeleton = R"({
  "bones": [{"name": "root"}, {"name": "b", "parent": "root"}],
  "events": {"e0": {}, "e5": {"int": 5}, "e10": {"string": "end"}},
  "animations": {
    "a": {"bones": {"b": {"rotate": [{"time": 0, "angle": 0}, {"time": 1, "angle": 90}]}}},
    "b": {"bones": {"b": {"rotate": [{"time": 0, "angle": -30}, {"time": 1, "angle": -30}]}}},
    "c": {"bones": {"b": {"rotate": [{"time": 0, "angle": -60}]}}},
    "ev": {
      "bones": {"b": {"rotate": [{"time": 0, "angle": 0}, {"time": 1, "angle": 0}]}},
      "events": [{"time": 0, "name": "e0"}, {"time": 0.5, "name": "e5"}, {"time": 1, "name": "e10"}]
    }
  }
})";

struct Record {
    int track;
    spEventType type;
    std::string event;
    int loopCount;
};

std::vector<Record>* g_records = nullptr;
std::vector<Record>* g_entryRecords = nullptr;

void recordState(spAnimationState*, int track, spEventType type, spEvent* event, int loopCount) {
    if (g_records) g_records->push_back({track, type, event ? event->data->name : "", loopCount});
}

void recordEntry(spAnimationState*, int track, spEventType type, spEvent* event, int loopCount) {
    if (g_entryRecords) g_entryRecords->push_back({track, type, event ? event->data->name : "", loopCount});
}

class State : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(rig.load(kStateSkeleton)) << rig.error();
        stateData = spAnimationStateData_create(rig.data);
        state = spAnimationState_create(stateData);
        state->listener = recordState;
        g_records = &records;
        g_entryRecords = &entryRecords;
    }
    void TearDown() override {
        spAnimationState_dispose(state);
        spAnimationStateData_dispose(stateData);
        g_records = nullptr;
        g_entryRecords = nullptr;
    }
    void step(float delta) {
        spAnimationState_update(state, delta);
        spAnimationState_apply(state, rig.skeleton);
    }
    float rotation() { return rig.bone("b")->rotation; }
    // Names of the keyed events fired since the last call.
    std::vector<std::string> takeEvents() {
        std::vector<std::string> names;
        for (const Record& r : records)
            if (r.type == SP_ANIMATION_EVENT) names.push_back(r.event);
        records.clear();
        return names;
    }
    int count(spEventType type) const {
        int n = 0;
        for (const Record& r : records) n += r.type == type;
        return n;
    }

    Rig rig;
    spAnimationStateData* stateData = nullptr;
    spAnimationState* state = nullptr;
    std::vector<Record> records, entryRecords;
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(State, PlaysAndCrossFadesOverTheMixDuration) {
    spAnimationStateData_setMixByName(stateData, "a", "c", 0.4f);
    EXPECT_FLOAT_EQ(spAnimationStateData_getMix(stateData, rig.animation("a"), rig.animation("c")), 0.4f);
    EXPECT_FLOAT_EQ(spAnimationStateData_getMix(stateData, rig.animation("c"), rig.animation("a")), 0);

    spAnimationState_setAnimationByName(state, 0, "a", 1);
    step(0.5f);
    EXPECT_NEAR(rotation(), 45, 1e-4);

    spTrackEntry* c = spAnimationState_setAnimationByName(state, 0, "c", 1);
    ASSERT_NE(c->previous, nullptr);
    EXPECT_FLOAT_EQ(c->mixDuration, 0.4f);
    step(0.1f);
    // "a" at 0.6 gives 54 degrees; "c" comes in by 0.1 / 0.4: 54 + (-60 - 54) / 4.
    EXPECT_NEAR(rotation(), 25.5f, 1e-3);
    step(0.1f);
    // "a" at 0.7 gives 63; alpha 0.5: 63 + (-60 - 63) / 2.
    EXPECT_NEAR(rotation(), 1.5f, 1e-3);
    step(0.2f);
    // Mix done: "a" is let go and "c" stands alone.
    EXPECT_NEAR(rotation(), -60, 1e-3);
    EXPECT_EQ(c->previous, nullptr);
}

TEST_F(State, TrackMixAndHigherTracksLayerOver) {
    spAnimationState_setAnimationByName(state, 0, "a", 0);
    spTrackEntry* top = spAnimationState_setAnimationByName(state, 1, "c", 0);
    top->mix = 0.5f;
    step(1);
    // Track 0 sets 90; track 1 pulls half way to -60.
    EXPECT_NEAR(rotation(), 15, 1e-3);
}

TEST_F(State, DefaultMixAndTimeScales) {
    stateData->defaultMix = 0.2f;
    spAnimationState_setAnimationByName(state, 0, "a", 1);
    spTrackEntry* b = spAnimationState_setAnimationByName(state, 0, "b", 1);
    EXPECT_FLOAT_EQ(b->mixDuration, 0.2f);

    spAnimationState_clearTracks(state);
    state->timeScale = 2;
    spTrackEntry* a = spAnimationState_setAnimationByName(state, 0, "a", 1);
    a->timeScale = 0.5f;
    step(0.25f);
    EXPECT_NEAR(a->time, 0.25f, 1e-6);
    EXPECT_NEAR(rotation(), 22.5f, 1e-3);
}

TEST_F(State, EventsFireOnceEachAcrossLoops) {
    spAnimationState_setAnimationByName(state, 0, "ev", 1);
    EXPECT_EQ(count(SP_ANIMATION_START), 1);
    step(0);
    EXPECT_EQ(takeEvents(), Names({"e0"}));
    step(0.4f);
    EXPECT_EQ(takeEvents(), Names());
    step(0.2f);
    EXPECT_EQ(takeEvents(), Names({"e5"}));
    step(0.3f);
    EXPECT_EQ(takeEvents(), Names());
    // 0.9 -> 1.1: the rest of the turn, then the start of the next.
    step(0.2f);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0].event, "e10");
    EXPECT_EQ(records[1].event, "e0");
    EXPECT_EQ(records[2].type, SP_ANIMATION_COMPLETE);
    EXPECT_EQ(records[2].loopCount, 1);
    records.clear();
    // A large step within the next turns' phase: 1.1 -> 3.7 is 0.1 -> 0.7.
    step(2.6f);
    EXPECT_EQ(takeEvents(), Names({"e5"}));
    // 3.7 -> 4.2 wraps again.
    step(0.5f);
    EXPECT_EQ(records.size(), 3u);
    EXPECT_EQ(records.back().type, SP_ANIMATION_COMPLETE);
    EXPECT_EQ(records.back().loopCount, 4);
    EXPECT_EQ(takeEvents(), Names({"e10", "e0"}));
}

TEST_F(State, EventPayloadComesFromTheKeyAndData) {
    spEvent* seen[3] = {};
    int n = 0;
    spSkeleton_setToSetupPose(rig.skeleton);
    spAnimation_apply(rig.animation("ev"), rig.skeleton, -1, 1, 0, seen, &n);
    ASSERT_EQ(n, 3);
    EXPECT_EQ(seen[1]->intValue, 5);
    EXPECT_FLOAT_EQ(seen[1]->time, 0.5f);
    EXPECT_STREQ(seen[2]->stringValue, "end");
    EXPECT_EQ(spAnimation_maxFiredEvents(rig.animation("ev")), 6);
}

TEST_F(State, NonLoopingHoldsItsEndAndFiresOnce) {
    spTrackEntry* entry = spAnimationState_setAnimationByName(state, 0, "ev", 0);
    // Queue something far later so the finished entry stays current.
    spAnimationState_addAnimationByName(state, 0, "a", 1, 10);
    step(0);
    step(5);
    ASSERT_EQ(count(SP_ANIMATION_COMPLETE), 1);
    EXPECT_EQ(records.back().type, SP_ANIMATION_COMPLETE);
    EXPECT_EQ(records.back().loopCount, 1);  // held at the end: one turn
    EXPECT_EQ(takeEvents(), Names({"e0", "e5", "e10"}));
    // Held past its end, nothing fires again.
    step(0.5f);
    step(0.5f);
    EXPECT_EQ(takeEvents(), Names());
    EXPECT_EQ(spAnimationState_getCurrent(state, 0), entry);
    EXPECT_NEAR(rotation(), 0, 1e-4);
}

TEST_F(State, NonLoopingCompletesOnceThenClears) {
    spAnimationState_setAnimationByName(state, 0, "a", 0);
    step(0.6f);
    step(0.6f);
    int completes = 0;
    for (const Record& r : records) completes += r.type == SP_ANIMATION_COMPLETE && r.loopCount == 1;
    EXPECT_EQ(completes, 1);
    EXPECT_NEAR(rotation(), 90, 1e-4);  // held at the end
    records.clear();
    step(0.1f);  // last time passed the end: the track is cleared
    EXPECT_EQ(spAnimationState_getCurrent(state, 0), nullptr);
    EXPECT_EQ(count(SP_ANIMATION_END), 1);
    EXPECT_EQ(count(SP_ANIMATION_COMPLETE), 0);
}

TEST_F(State, QueuedEntryStartsAfterTheCurrentOneEnds) {
    spTrackEntry* a = spAnimationState_setAnimationByName(state, 0, "a", 0);
    spTrackEntry* c = spAnimationState_addAnimationByName(state, 0, "c", 1, 0);
    ASSERT_EQ(a->next, c);
    EXPECT_FLOAT_EQ(c->delay, 1);  // a's end, no mix
    records.clear();
    step(0.6f);
    step(0.6f);
    EXPECT_EQ(spAnimationState_getCurrent(state, 0), a);
    step(0.1f);  // a's last time 1.2 is past the delay
    ASSERT_EQ(spAnimationState_getCurrent(state, 0), c);
    EXPECT_NEAR(c->time, 0.2f, 1e-5);
    EXPECT_NEAR(rotation(), -60, 1e-4);
    ASSERT_GE(records.size(), 2u);
    // a's end, then c's start.
    bool sawEnd = false, sawStart = false;
    for (const Record& r : records) {
        if (r.type == SP_ANIMATION_END) sawEnd = true;
        if (r.type == SP_ANIMATION_START) {
            EXPECT_TRUE(sawEnd);
            sawStart = true;
        }
    }
    EXPECT_TRUE(sawStart);
}

TEST_F(State, QueueDelayAccountsForTheMix) {
    spAnimationStateData_setMixByName(stateData, "a", "c", 0.25f);
    spAnimationState_setAnimationByName(state, 0, "a", 0);
    spTrackEntry* c = spAnimationState_addAnimationByName(state, 0, "c", 0, -0.1f);
    EXPECT_FLOAT_EQ(c->delay, -0.1f + 1 - 0.25f);
}

TEST_F(State, AddOnAnEmptyTrackStartsAtOnceWithoutStartEvent) {
    spTrackEntry* entry = spAnimationState_addAnimationByName(state, 2, "a", 1, 3);
    EXPECT_EQ(spAnimationState_getCurrent(state, 2), entry);
    EXPECT_FLOAT_EQ(entry->delay, 3);
    EXPECT_EQ(count(SP_ANIMATION_START), 0);
    step(0.5f);
    EXPECT_NEAR(rotation(), 45, 1e-4);
}

TEST_F(State, InterruptedMixKeepsFadingTheOlderEntry) {
    spAnimationStateData_setMixByName(stateData, "a", "b", 1);
    spAnimationStateData_setMixByName(stateData, "b", "c", 1);
    spAnimationState_setAnimationByName(state, 0, "a", 1);
    step(0.1f);
    spAnimationState_setAnimationByName(state, 0, "b", 1);
    step(0.3f);  // 30% of a -> b
    spTrackEntry* c = spAnimationState_setAnimationByName(state, 0, "c", 1);
    ASSERT_NE(c->previous, nullptr);
    EXPECT_EQ(c->previous->animation, rig.animation("a"));

    spAnimationState_clearTracks(state);
    spAnimationState_setAnimationByName(state, 0, "a", 1);
    spAnimationState_setAnimationByName(state, 0, "b", 1);
    step(0.6f);  // more than half done
    c = spAnimationState_setAnimationByName(state, 0, "c", 1);
    ASSERT_NE(c->previous, nullptr);
    EXPECT_EQ(c->previous->animation, rig.animation("b"));
    EXPECT_EQ(c->previous->previous, nullptr);
}

TEST_F(State, ClearAndPercent) {
    spAnimationState_setAnimationByName(state, 0, "a", 1);
    spAnimationState_setAnimationByName(state, 3, "c", 1);
    EXPECT_EQ(state->tracksCount, 4);
    records.clear();
    spAnimationState_clearTrack(state, 3);
    EXPECT_EQ(count(SP_ANIMATION_END), 1);
    EXPECT_EQ(spAnimationState_getCurrent(state, 3), nullptr);
    EXPECT_EQ(spAnimationState_getCurrent(state, 99), nullptr);

    spAnimationState_percent(state, 0.5f);
    spAnimationState_apply(state, rig.skeleton);
    EXPECT_NEAR(rotation(), 45, 1e-4);
    spAnimationState_clearTracks(state);
    EXPECT_EQ(spAnimationState_getCurrent(state, 0), nullptr);
}

TEST_F(State, RefusesUnknownAnimationsAndBadTracks) {
    EXPECT_EQ(spAnimationState_setAnimationByName(state, 0, "nope", 1), nullptr);
    EXPECT_EQ(spAnimationState_setAnimationByName(state, -1, "a", 1), nullptr);
    EXPECT_EQ(spAnimationState_addAnimationByName(state, 100000, "a", 1, 0), nullptr);
    EXPECT_EQ(spAnimationState_setAnimation(state, 0, nullptr, 1), nullptr);
    spAnimationStateData_setMixByName(stateData, "a", "nope", 1);  // ignored
    EXPECT_EQ(stateData->entries, nullptr);
}

TEST_F(State, EntryListenerRunsBeforeTheStateListener) {
    spTrackEntry* entry = spAnimationState_setAnimationByName(state, 0, "ev", 1);
    entry->listener = recordEntry;
    step(0);
    ASSERT_EQ(entryRecords.size(), 1u);
    EXPECT_EQ(entryRecords[0].event, "e0");
    spAnimationState_clearTrack(state, 0);
    EXPECT_EQ(entryRecords.back().type, SP_ANIMATION_END);
}

namespace {

// Replaces the track's entry from inside an event callback.
void replaceOnEvent(spAnimationState* state, int track, spEventType type, spEvent* event, int) {
    recordState(state, track, type, event, 0);
    if (type == SP_ANIMATION_EVENT && std::string(event->data->name) == "e5")
        spAnimationState_setAnimationByName(state, track, "c", 1);
}

// Clears the track from inside its end callback, as a node's stop does.
void clearOnEnd(spAnimationState* state, int track, spEventType type, spEvent* event, int) {
    recordState(state, track, type, event, 0);
    if (type == SP_ANIMATION_END) spAnimationState_clearTrack(state, track);
}
} // namespace

TEST_F(State, ListenerMayReplaceTheEntryDuringEvents) {
    state->listener = replaceOnEvent;
    spAnimationState_setAnimationByName(state, 0, "ev", 1);
    step(0.1f);
    step(0.9f);  // e5 replaces the entry; e10 and complete of "ev" are dropped
    EXPECT_EQ(takeEvents(), Names({"e0", "e5"}));
    EXPECT_EQ(spAnimationState_getCurrent(state, 0)->animation, rig.animation("c"));
    step(0.1f);
    EXPECT_NEAR(rotation(), -60, 1e-4);
}

TEST_F(State, ListenerMayClearTheTrackFromAnEndEvent) {
    spAnimationState_setAnimationByName(state, 0, "a", 0);
    spAnimationState_addAnimationByName(state, 0, "c", 1, 0);
    state->listener = clearOnEnd;
    for (int i = 0; i < 30; i++) step(0.1f);
    EXPECT_EQ(spAnimationState_getCurrent(state, 0), nullptr);
}

TEST(SpineStateSteady, NoHeapCallsPerFrame) {
    // The full test skeleton with every timeline kind, three tracks and a
    // cross-fade in progress: after warm-up no frame allocates or frees.
    spAtlas* atlas = spAtlas_createFromFile(dataPath("full.atlas").c_str(), nullptr);
    ASSERT_NE(atlas, nullptr);
    spSkeletonJson* json = spSkeletonJson_create(atlas);
    spSkeletonData* data = spSkeletonJson_readSkeletonDataFile(json, dataPath("full.json").c_str());
    ASSERT_NE(data, nullptr) << json->error;
    spSkeleton* skeleton = spSkeleton_create(data);
    spAnimationStateData* stateData = spAnimationStateData_create(data);
    spAnimationStateData_setMixByName(stateData, "walk", "all", 1000);
    spAnimationState* state = spAnimationState_create(stateData);
    spAnimationState_setAnimationByName(state, 0, "walk", 1);
    spAnimationState_setAnimationByName(state, 0, "all", 1);
    spAnimationState_setAnimationByName(state, 1, "walk", 1)->mix = 0.5f;
    spAnimationState_setAnimationByName(state, 2, "all", 1)->mix = 0.25f;

    auto frame = [&] {
        spSkeleton_update(skeleton, 1 / 60.0f);
        spAnimationState_update(state, 1 / 60.0f);
        spAnimationState_apply(state, skeleton);
        spSkeleton_updateWorldTransform(skeleton);
    };
    for (int i = 0; i < 150; i++) frame();
    {
        AllocationCounter counter;
        for (int i = 0; i < 300; i++) frame();
        EXPECT_EQ(counter.mallocs(), 0);
        EXPECT_EQ(counter.frees(), 0);
    }
    for (int i = 0; i < skeleton->bonesCount; i++) {
        EXPECT_TRUE(std::isfinite(skeleton->bones[i]->worldX)) << skeleton->bones[i]->data->name;
        EXPECT_TRUE(std::isfinite(skeleton->bones[i]->a)) << skeleton->bones[i]->data->name;
    }
    spAnimationState_dispose(state);
    spAnimationStateData_dispose(stateData);
    spSkeleton_dispose(skeleton);
    spSkeletonData_dispose(data);
    spSkeletonJson_dispose(json);
    spAtlas_dispose(atlas);
}
