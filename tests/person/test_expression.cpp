// Expression recognition of one person driven with landmark sets placed by
// hand: eyes, mouth, corners, pout and head pose, the events each analysis
// sends, the rate limit and the defaults file.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "event/ZuPersonEvent.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateMgr.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonExpressionExt.h"
#include "person/ZuPersonSys.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <string>
#include <vector>
#include <sys/stat.h>

namespace {

struct Pt {
    float x, y;
};

// A neutral AS face by landmark number: open eyes 60 wide and 20 high, a
// closed mouth 100 wide with a lip gap of 10, level corners.
std::map<int, Pt> neutralFace() {
    return {
        {39, {400, 300}}, {45, {460, 300}}, {42, {430, 310}}, {48, {430, 290}}, // left eye
        {51, {540, 300}}, {57, {600, 300}}, {54, {570, 310}}, {60, {570, 290}}, // right eye
        {75, {450, 200}}, {81, {550, 200}}, {84, {500, 215}}, {93, {500, 205}}, // mouth corners, upper lip
        {89, {500, 195}}, {78, {500, 185}}, {99, {500, 260}},                   // lower lip, nose tip
    };
}

std::vector<float> landmarks(const std::map<int, Pt>& face) {
    std::vector<float> v(202, 0.0f);
    for (int i = 0; i < 101; ++i) { // unused points off the face, apart from each other
        v[i * 2] = 10.0f + i;
        v[i * 2 + 1] = 10.0f;
    }
    for (const auto& p : face) {
        v[p.first * 2] = p.second.x;
        v[p.first * 2 + 1] = p.second.y;
    }
    return v;
}

struct Seen {
    std::string name;
    int type;
    int personID;
    float value;
    int extra;
    std::string scene;
};

class ExpressionEvents : public ZuEventProc {
public:
    using ZuEventProc::ZuEventProc;
    bool procEvent(ZuEvent* event) override {
        if (auto* p = dynamic_cast<ZuPersonEvent*>(event))
            seen.push_back({p->name.c_str(), p->type, p->personID, p->value, p->extra, p->sceneName.c_str()});
        return true;
    }
    std::vector<Seen> seen;
};

class ExpressionTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override { return {assets}; }
    void SetUp() override {
        EngineTest::SetUp();
        managers = app->getGlobalMgr();
        managers->getSceneMgr()->createScene("cam", 64, 64, 64, 64);
        ZuOperateChangeDetectDataType* op = new ZuOperateChangeDetectDataType(app, DETECTTYPE_AS);
        managers->getOperateMgr()->pushOperate(op);
        op->release();
        frame();
        events = new ExpressionEvents(app);
        managers->getEventMgr()->registProcer(events);
        ZuPerson* person = managers->getPersonSys()->getPerson("cam", 2);
        ASSERT_NE(person, nullptr);
        ext = person->getPersonExpression();
        ASSERT_NE(ext, nullptr);
        ext->setSceneName("cam");
        ext->setClock([this] { return ZuAppMain::WallTime{nowMs / 1000, (nowMs % 1000) * 1000}; });
    }
    void TearDown() override {
        managers->getEventMgr()->unregistProcer(events);
        events->release();
        EngineTest::TearDown();
    }
    // One update of person 2, then the events it sent, delivered.
    std::vector<Seen> track(const std::map<int, Pt>& face, float yaw = 0, float pitch = 0, bool mirror = true) {
        std::vector<float> pts = landmarks(face);
        ZuRect rect(380, 620, 340, 160);
        events->seen.clear();
        ext->trackExpression(pts.data(), static_cast<int>(pts.size()), &rect, 3.0f, yaw, pitch, 2, mirror);
        frame();
        frame();
        return events->seen;
    }
    static std::vector<std::string> names(const std::vector<Seen>& seen) {
        std::vector<std::string> out;
        for (const Seen& s : seen) out.push_back(s.name + ":" + std::to_string(s.type));
        return out;
    }
    static const Seen* find(const std::vector<Seen>& seen, const std::string& name) {
        for (const Seen& s : seen)
            if (s.name == name) return &s;
        return nullptr;
    }

    ZuGlobalMgr* managers = nullptr;
    ExpressionEvents* events = nullptr;
    ZuPersonExpressionExt* ext = nullptr;
    const std::string assets = sourceAssets();
    int64_t nowMs = 1000000;
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(ExpressionTest, NeutralFaceSendsTheOpenAndNeutralStatesOnly) {
    const std::vector<Seen> seen = track(neutralFace());
    EXPECT_EQ(names(seen), (Names{"lefteyeopen:9", "righteyeopen:12", "mouthclose:18", "headnoneturn:25",
                                  "headnoneraisebow:28"}));
    ASSERT_FALSE(seen.empty());
    for (const Seen& s : seen) {
        EXPECT_EQ(s.personID, 2);
        EXPECT_EQ(s.scene, "cam");
    }
    // Openness: lid gap over half the eye width, 20 / 30.
    EXPECT_NEAR(seen[0].value, 2.0f / 3.0f, 1e-5);
    EXPECT_TRUE(ext->getLeftEyeOpenState());
    EXPECT_TRUE(ext->getRightEyeOpenState());
    EXPECT_FALSE(ext->getMouthOpenState());
    EXPECT_TRUE(ext->getEntry(8).state);
    EXPECT_FALSE(ext->getLeftMouthCornerRaiseState());
    EXPECT_FALSE(ext->getTouthMouthState());
    // Bowed corners are never judged.
    EXPECT_FALSE(ext->getLeftMouthCornerBowState());
    EXPECT_FALSE(ext->getRightMouthCornerBowState());
}

TEST_F(ExpressionTest, ClosingAnEyeBlinksOnceThenKeepsReportingTheClosedState) {
    track(neutralFace());
    nowMs += 100;
    std::map<int, Pt> face = neutralFace();
    face[42] = {430, 303}; // lid gap 6: 24 - 6 > min(60 x 0.2, 24)
    face[48] = {430, 297};
    std::vector<Seen> seen = track(face);
    EXPECT_EQ(names(seen), (Names{"lefteyeclose:11", "righteyeopen:12", "eyeblink:10", "mouthclose:18",
                                  "headnoneturn:25", "headnoneraisebow:28", "lefteyeclose_righteyeopen:32"}));
    EXPECT_FALSE(ext->getLeftEyeOpenState());
    EXPECT_NEAR(find(seen, "lefteyeclose")->value, 0.8f, 1e-5); // |1 - 6 / 30|
    EXPECT_NEAR(find(seen, "eyeblink")->value, 0.5f * (0.8f + 2.0f / 3.0f), 1e-5);
    EXPECT_NEAR(find(seen, "lefteyeclose_righteyeopen")->value, 0.5f * (0.8f + 2.0f / 3.0f), 1e-5);

    // Still closed: the state repeats, the blink does not.
    nowMs += 100;
    seen = track(face);
    EXPECT_NE(find(seen, "lefteyeclose"), nullptr);
    EXPECT_EQ(find(seen, "eyeblink"), nullptr);

    // Both closed; the right eye blinks with kind 13.
    face[54] = {570, 303};
    face[60] = {570, 297};
    nowMs += 100;
    seen = track(face);
    const Seen* blink = find(seen, "eyeblink");
    ASSERT_NE(blink, nullptr);
    EXPECT_EQ(blink->type, 13);
    EXPECT_NE(find(seen, "lefteyeclose_righteyeclose"), nullptr);
    EXPECT_EQ(find(seen, "lefteyeclose_righteyeopen"), nullptr);
}

TEST_F(ExpressionTest, ALidGapOfExactlyTheLimitStillCountsAsOpen) {
    std::map<int, Pt> face = neutralFace();
    face[42] = {430, 306}; // gap 12 = 24 - 12: the test is strict
    face[48] = {430, 294};
    track(face);
    EXPECT_TRUE(ext->getLeftEyeOpenState());
    face[42] = {430, 305.9f};
    nowMs += 100;
    track(face);
    EXPECT_FALSE(ext->getLeftEyeOpenState());
}

TEST_F(ExpressionTest, OpenMouthWithHeadTurnedLeftSendsAllThree) {
    std::map<int, Pt> face = neutralFace();
    face[89] = {500, 130}; // lip gap 75 > 100 x 0.5
    face[78] = {500, 120};
    const std::vector<Seen> seen = track(face, -20.0f);
    const Seen* open = find(seen, "mouthopen");
    ASSERT_NE(open, nullptr);
    EXPECT_EQ(open->type, 17);
    EXPECT_NEAR(open->value, 0.75f, 1e-5);
    EXPECT_EQ(open->extra, 75);
    const Seen* left = find(seen, "headturnleft");
    ASSERT_NE(left, nullptr);
    EXPECT_EQ(left->type, 23);
    EXPECT_NEAR(left->value, 20.0f / 45.0f, 1e-5);
    const Seen* both = find(seen, "mouthopen_headturnleft");
    ASSERT_NE(both, nullptr);
    EXPECT_EQ(both->type, 29);
    EXPECT_NEAR(both->value, 0.5f * (0.75f + 20.0f / 45.0f), 1e-5);
    EXPECT_EQ(find(seen, "mouthclose"), nullptr);
    EXPECT_EQ(find(seen, "headnoneturn"), nullptr);
    EXPECT_TRUE(ext->getMouthOpenState());
    EXPECT_TRUE(ext->getLeftTurnHeadState());
    EXPECT_FALSE(ext->getRightTurnHeadState());
}

TEST_F(ExpressionTest, HeadPoseFollowsYawSignMirrorAndPitch) {
    track(neutralFace(), 20.0f, 0.0f, true);
    EXPECT_TRUE(ext->getRightTurnHeadState());
    // Unmirrored cameras negate yaw: the same reading turns left.
    nowMs += 100;
    std::vector<Seen> seen = track(neutralFace(), 20.0f, 0.0f, false);
    EXPECT_TRUE(ext->getLeftTurnHeadState());
    EXPECT_FALSE(ext->getRightTurnHeadState());
    // Yaw 0 turns nothing even with zero thresholds.
    ext->_setLookLeftAngle(0);
    ext->_setLookRightAngle(0);
    nowMs += 100;
    seen = track(neutralFace(), 0.0f, 0.0f);
    EXPECT_FALSE(ext->getLeftTurnHeadState());
    EXPECT_FALSE(ext->getRightTurnHeadState());
    EXPECT_NE(find(seen, "headnoneturn"), nullptr);

    nowMs += 100;
    seen = track(neutralFace(), 0.0f, 30.0f);
    const Seen* raise = find(seen, "headraise");
    ASSERT_NE(raise, nullptr);
    EXPECT_EQ(raise->type, 26);
    EXPECT_EQ(raise->extra, 30);
    EXPECT_NEAR(raise->value, 30.0f / 45.0f, 1e-5);
    EXPECT_TRUE(ext->getRaiseHeadState());
    nowMs += 100;
    seen = track(neutralFace(), 0.0f, -50.0f);
    const Seen* bow = find(seen, "headbow");
    ASSERT_NE(bow, nullptr);
    EXPECT_EQ(bow->type, 27);
    EXPECT_FLOAT_EQ(bow->value, 1.0f);
    EXPECT_FALSE(ext->getRaiseHeadState());
    EXPECT_TRUE(ext->getBowHeadState());
    EXPECT_EQ(find(seen, "headnoneraisebow"), nullptr);
}

TEST_F(ExpressionTest, RaisedCornersDependOnPitchBranches) {
    std::map<int, Pt> face = neutralFace();
    face[75] = {450, 180}; // both corners about 5.7 degrees above the 90 limit
    face[81] = {550, 180};
    // pitch -10: threshold 0; -15: 20 sin 15 = 5.2; -5: 100 sin 5 = 8.7; -20: 20 sin 20 = 6.8.
    const std::vector<std::pair<float, bool>> cases = {{-10, true}, {-15, true}, {-5, false}, {-20, false}};
    for (const auto& c : cases) {
        nowMs += 100;
        const std::vector<Seen> seen = track(face, 0.0f, c.first);
        SCOPED_TRACE(c.first);
        EXPECT_EQ(ext->getLeftMouthCornerRaiseState(), c.second);
        EXPECT_EQ(ext->getRightMouthCornerRaiseState(), c.second);
        const Seen* raised = find(seen, "raisemouthcorner");
        EXPECT_EQ(raised != nullptr, c.second);
        if (raised) {
            EXPECT_EQ(raised->type, 20);
        }
    }
}

TEST_F(ExpressionTest, PoutIsSeenAndCombinedWithATurn) {
    std::map<int, Pt> face = neutralFace();
    face[75] = {470, 200}; // a narrow, pushed-out mouth
    face[81] = {530, 200};
    face[84] = {500, 240};
    face[78] = {500, 170};
    std::vector<Seen> seen = track(face, 20.0f);
    EXPECT_TRUE(ext->getTouthMouthState());
    const Seen* pout = find(seen, "mouthtouth");
    ASSERT_NE(pout, nullptr);
    EXPECT_EQ(pout->type, 19);
    const Seen* turned = find(seen, "mouthtouth_headturnright");
    ASSERT_NE(turned, nullptr);
    EXPECT_EQ(turned->type, 35);
    EXPECT_EQ(find(seen, "mouthtouth_headturnleft"), nullptr);
    // An open mouth is no pout.
    face[89] = {500, 150};
    nowMs += 100;
    seen = track(face);
    EXPECT_FALSE(ext->getTouthMouthState());
}

TEST_F(ExpressionTest, AnalysisIsRateLimitedExceptTheFirst) {
    ext->setDetectExtRate(1); // 1000 ms
    EXPECT_EQ(ext->getDetectExtRate(), 1);
    EXPECT_FALSE(track(neutralFace()).empty()); // the first analyses at once
    nowMs += 999;
    std::map<int, Pt> face = neutralFace();
    face[89] = {500, 130};
    EXPECT_TRUE(track(face).empty());
    EXPECT_FALSE(ext->getMouthOpenState());
    nowMs += 1;
    EXPECT_FALSE(track(face).empty());
    EXPECT_TRUE(ext->getMouthOpenState());

    ext->setDetectExtRate(200); // 5 ms
    nowMs += 5;
    EXPECT_FALSE(track(face).empty());
    ext->setDetectExtRate(201);
    ext->setDetectExtRate(-1);
    EXPECT_EQ(ext->getDetectExtRate(), 200);
    nowMs += 4;
    EXPECT_TRUE(track(face).empty());

    // States still update with sending switched off.
    ext->setEnableSendEvnet(false);
    nowMs += 5;
    EXPECT_TRUE(track(neutralFace()).empty());
    EXPECT_FALSE(ext->getMouthOpenState());
}

TEST_F(ExpressionTest, TooFewLandmarksOrNoneAreRefusedWithoutReadingPastThem) {
    std::vector<float> few(20, 1.0f);
    ZuRect rect(0, 10, 10, 0);
    ext->trackExpression(few.data(), static_cast<int>(few.size()), &rect, 0, 0, 0, 2, true);
    ext->trackExpression(nullptr, 202, &rect, 0, 0, 0, 2, true);
    frame();
    frame();
    EXPECT_TRUE(events->seen.empty());
    ext->saveStandardPt(few.data(), static_cast<int>(few.size()), &rect, 0, 0, 0);
    EXPECT_FALSE(ext->getHasStandard());
    // Degenerate face: every point in one spot gives finite values.
    std::vector<float> flat(202, 50.0f);
    nowMs += 100;
    ext->trackExpression(flat.data(), 202, &rect, 0, 0, 0, 2, true);
    for (int i = 0; i < ZuPersonExpressionExt::kEntryCount; ++i) EXPECT_TRUE(std::isfinite(ext->getEntry(i).value)) << i;
}

TEST_F(ExpressionTest, StandardPoseSetsTheReferencesAndMapsLaterFacesOntoIt) {
    std::vector<float> pts = landmarks(neutralFace());
    ZuRect rect(380, 620, 340, 160);
    ext->saveStandardPt(pts.data(), 202, &rect, 0, 0, 0);
    EXPECT_TRUE(ext->getHasStandard());
    // The same face at twice the size and moved: mapped back, nothing changes.
    std::map<int, Pt> big;
    for (const auto& p : neutralFace()) big[p.first] = {2 * p.second.x - 300, 2 * p.second.y + 40};
    std::vector<float> bigPts = landmarks(big);
    for (int i = 0; i < 101; ++i)
        if (!big.count(i)) bigPts[i * 2] = 2 * pts[i * 2] - 300, bigPts[i * 2 + 1] = 2 * pts[i * 2 + 1] + 40;
    ZuRect bigRect(460, 940, 720, 360);
    events->seen.clear();
    ext->trackExpression(bigPts.data(), 202, &bigRect, 0, 0, 0, 2, true);
    frame();
    frame();
    const Seen* left = find(events->seen, "lefteyeopen");
    ASSERT_NE(left, nullptr);
    EXPECT_NEAR(left->value, 2.0f / 3.0f, 1e-4);
    EXPECT_NE(find(events->seen, "mouthclose"), nullptr);
    ext->resetStandarPt();
    EXPECT_FALSE(ext->getHasStandard());
}

TEST_F(ExpressionTest, DefaultsFileOverridesAndBadFilesKeepBuiltIns) {
    // The shipped file holds the built-in values.
    EXPECT_FLOAT_EQ(ext->_getLookUpAngle(), 20);
    EXPECT_FLOAT_EQ(ext->_getLookLeftAngle(), 15);
    EXPECT_FLOAT_EQ(ext->_getMouthOpenAdjust(), 0.5f);
    EXPECT_EQ(ext->getDetectExtRate(), 30);

    const std::string dir = ::testing::TempDir() + "expr_" + std::to_string(::getpid()) + "/";
    mkdir(dir.c_str(), 0755);
    mkdir((dir + "shader").c_str(), 0755);
    mkdir((dir + "shader/expression").c_str(), 0755);
    const std::string file = dir + "shader/expression/expression.json";
    ZuFileMgr* files = managers->getFileMgr();
    files->delRespath(assets.c_str());
    files->addRespath(dir.c_str());

    std::ofstream(file) << R"({"param": {"enabletestpt": 1, "enablesendevent": 0, "detectrate": 50,
        "look_up_angle": 7, "look_down_angle": 8, "look_left_angle": 9, "look_right_angle": 10,
        "open_mouse_adjust": 4, "close_eye_adjust": 2, "pout_adjust": 3, "lips_adjust": 1}})";
    ext->init(app);
    EXPECT_EQ(ext->getEnableTestPt(), 1);
    EXPECT_EQ(ext->getEnableSendEvent(), 0);
    EXPECT_EQ(ext->getDetectExtRate(), 50);
    EXPECT_FLOAT_EQ(ext->_getLookUpAngle(), 7);
    EXPECT_FLOAT_EQ(ext->_getLookDownAngle(), 8);
    EXPECT_FLOAT_EQ(ext->_getLookLeftAngle(), 9);
    EXPECT_FLOAT_EQ(ext->_getLookRightAngle(), 10);
    EXPECT_FLOAT_EQ(ext->_getMouthOpenAdjust(), 0.4f);
    EXPECT_FLOAT_EQ(ext->getEyeCloseAdjust(), 0.1f);
    EXPECT_FLOAT_EQ(ext->getPoutAdjust(), 0.8f);
    EXPECT_FLOAT_EQ(ext->getLipsAdjust(), 0.6f);

    // Partial file: only its key changes, the rest fall back; wrong types are skipped.
    std::ofstream(file) << R"({"param": {"look_up_angle": 33, "detectrate": "fast", "lips_adjust": 500}})";
    ext->init(app);
    EXPECT_FLOAT_EQ(ext->_getLookUpAngle(), 33);
    EXPECT_EQ(ext->getDetectExtRate(), 30);
    EXPECT_FLOAT_EQ(ext->getLipsAdjust(), 50.5f);
    EXPECT_EQ(ext->getEnableSendEvent(), 1);

    for (const char* bad : {"{not json", R"({"param": 3})", "[]"}) {
        std::ofstream(file) << bad;
        ext->init(app);
        EXPECT_FLOAT_EQ(ext->_getLookUpAngle(), 20) << bad;
        EXPECT_EQ(ext->getDetectExtRate(), 30) << bad;
    }
    std::remove(file.c_str());
    ext->init(app);
    EXPECT_FLOAT_EQ(ext->_getLookLeftAngle(), 15);
    files->delRespath(dir.c_str());
    files->addRespath(assets.c_str());
}
