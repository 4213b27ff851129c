// Blend-shape tracking: the position table reader, the shipped table, and
// weights and head pose from FP records pushed through a running engine.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/StanderFace.h"
#include "data/ZuMeshDataMgr.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateMgr.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonAnimojiMgr.h"
#include "person/ZuPersonAnimoji_FP.h"
#include "person/ZuPersonSys.h"
#include "person/ZuPosData.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/WireRecord.h"

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr float kW = 1280.0f;
constexpr float kH = 720.0f;
const int kKeys[29] = {0,  16, 32, 33, 37, 38, 42, 43, 49, 52, 55, 58, 61, 72, 73,
                       75, 76, 84, 86, 87, 88, 90, 92, 93, 94, 98, 102, 104, 105};

struct Pt {
    float x, y;
};
float dist(const Pt& a, const Pt& b) { return std::hypot(b.x - a.x, b.y - a.y); }

std::string rowText(const char* key, int base) {
    std::string line = key;
    line += ' ';
    for (int v = 0; v < 58; ++v) line += (v ? " " : "") + std::to_string(base + v);
    return line + "\n";
}

TEST(PosData, ReadsWellFormedLinesOnlyAndKeepsTheFirstRowOfAKey) {
    ZuPosData table(nullptr);
    table.retain(); // on the stack: no release may free it
    std::string text = rowText("060060", 100) + rowText("060060", 900) // the second row of a key is dropped
                       + rowText("06x060", 1)                          // key not digits
                       + std::string("061060 1 2 3\n")                  // too few values
                       + rowText("062060", 5).insert(10, "a")          // not a number
                       + rowText("063060", 5).insert(8, " ")           // two blanks
                       + rowText("064060", -7)                         // negatives are numbers
                       + std::string("\n")                             // empty line
                       + rowText("065060", 1).substr(0, 40) + " 9 9\n"; // trailing values
    // The last line has no line feed: it may be cut short and is not read.
    std::string last = rowText("070070", 3);
    text += last.substr(0, last.size() - 1);
    // Exactly the bytes, no terminator: a read past them shows under ASan.
    std::vector<char> bytes(text.begin(), text.end());
    table._read(bytes.data(), static_cast<int>(bytes.size()));

    EXPECT_EQ(table.getRowCount(), 2);
    const int* row = table.getPos("060060");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row[0], 100);
    EXPECT_EQ(row[57], 157);
    EXPECT_EQ(table.getPos(60, 60), row);
    const int* negative = table.getPos(64, 60);
    ASSERT_NE(negative, nullptr);
    EXPECT_EQ(negative[0], -7);
    EXPECT_EQ(negative[8], 1);
    for (const char* key : {"06x060", "061060", "062060", "063060", "065060", "070070"})
        EXPECT_EQ(table.getPos(key), nullptr) << key;
    EXPECT_EQ(table.getPos("0600"), nullptr); // short key
    EXPECT_EQ(table.getPos(nullptr), nullptr);

    // A line cut by the size given stops at the size, not at the text's end.
    ZuPosData cut(nullptr);
    cut.retain();
    std::string two = rowText("050050", 1) + rowText("051051", 1);
    cut._read(two.data(), static_cast<int>(two.size() - 2));
    EXPECT_EQ(cut.getRowCount(), 1);
    cut._read(nullptr, 10);
    cut.destroy();
    EXPECT_EQ(cut.getRowCount(), 0);
    EXPECT_EQ(cut.getPos("050050"), nullptr);
}

TEST(PosData, KeysAreThreeDigitsAndEveryNegativeIsZero) {
    char out[4];
    const std::vector<std::pair<int, const char*>> cases = {
        {60, "060"}, {5, "005"}, {120, "120"}, {-3, "000"}, {0, "000"}, {-61, "000"}, {1000, "100"}};
    for (const auto& c : cases) {
        ZuPosData::_intToChars(c.first, out);
        EXPECT_STREQ(out, c.second) << c.first;
    }
    ZuPosData table(nullptr);
    table.retain();
    const std::string text = rowText("000105", 1);
    table._read(text.data(), static_cast<int>(text.size()));
    // Yaw -60 and every yaw below it look up "000".
    EXPECT_NE(table.getPos(0, 105), nullptr);
    EXPECT_EQ(table.getPos(-1, 105), table.getPos(0, 105));
    EXPECT_EQ(table.getPos(-200, 105), table.getPos(0, 105));
}

// A standalone manager: no engine, so no table; the frame handling still runs.
TEST(AnimojiMgr, TurnsPointsAndRollByCameraRotation) {
    ZuPersonAnimojiMgr mgr(nullptr);
    mgr.retain();
    EXPECT_EQ(mgr.getValues(), nullptr);
    mgr.init(DETECTTYPE_FP);
    ASSERT_NE(mgr.getValues(), nullptr);
    EXPECT_EQ(mgr.getPosData()->getRowCount(), 0); // nothing to read from
    std::vector<float> pts(212);
    for (int i = 0; i < 106; ++i) {
        pts[i * 2] = 10.0f + i;
        pts[i * 2 + 1] = 500.0f - i;
    }
    mgr.detect(pts.data(), 90, 30.0f, 0.0f, 0.0f);
    EXPECT_FLOAT_EQ(mgr.getWorkingPoints()[3].x, 497.0f);
    EXPECT_FLOAT_EQ(mgr.getWorkingPoints()[3].y, 13.0f);
    mgr.detect(pts.data(), 0, 30.0f, 0.0f, 0.0f);
    EXPECT_FLOAT_EQ(mgr.getWorkingPoints()[3].x, 13.0f);

    // Big moves twice in a row: k 0.15 on the first call that sees one.
    ZuPersonAnimojiMgr turned(nullptr);
    turned.retain();
    turned.init(DETECTTYPE_FP);
    for (int call = 0; call < 2; ++call) {
        for (float& v : pts) v += 100.0f;
        turned.detect(pts.data(), 270, 30.0f, 10.0f, 5.0f);
    }
    EXPECT_EQ(turned.getMovingCount(), 1);
    EXPECT_NEAR(turned.getRoll(), (30.0f - 360.0f) * 1.2f * 0.15f, 1e-4);
    EXPECT_NEAR(turned.getYaw(), 10.0f * 1.2f * 0.15f, 1e-5);
    EXPECT_NEAR(turned.getPitch(), 5.0f * 1.6f * 0.15f, 1e-5);
    // A second big move in a row: k 0.3.
    const float yaw1 = turned.getYaw();
    for (float& v : pts) v += 100.0f;
    turned.detect(pts.data(), 270, 30.0f, 10.0f, 5.0f);
    EXPECT_EQ(turned.getMovingCount(), 2);
    EXPECT_NEAR(turned.getYaw(), yaw1 + (12.0f - yaw1) * 0.3f, 1e-5);

    // Non-finite input is refused before it can stick in the smoothing.
    pts[7] = NAN;
    turned.detect(pts.data(), 0, 0.0f, 0.0f, 0.0f);
    EXPECT_TRUE(std::isfinite(turned.getMotion()));
    turned.detect(nullptr, 0, 0.0f, 0.0f, 0.0f);
    turned.detect(pts.data(), 0, 0.0f, INFINITY, 0.0f);
    EXPECT_NEAR(turned.getYaw(), yaw1 + (12.0f - yaw1) * 0.3f, 1e-5);
}

using Record = WireRecord;

// One FP face, landmarks in engine coordinates (y from the bottom).
struct Face {
    float roll = 0, yaw = 0, pitch = 0;
    std::vector<Pt> points;
};

// FP and ST blocks: count, then per face the head and the landmarks (wire y from the top).
Record record(const std::vector<Face>& faces, bool floats) {
    Record r;
    r.i32(static_cast<int>(faces.size()));
    for (const Face& f : faces) {
        r.f32(f.roll);
        r.f32(f.yaw);
        r.f32(f.pitch);
        for (int v : {100, 200, 300, 400}) r.i32(v);
        for (const Pt& p : f.points) {
            if (floats) {
                r.f32(p.x);
                r.f32(kH - p.y);
            } else {
                r.i32(static_cast<int32_t>(p.x));
                r.i32(static_cast<int32_t>(kH - p.y));
            }
        }
    }
    return r;
}

class AnimojiTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override { return {sourceAssets()}; }
    void SetUp() override {
        EngineTest::SetUp();
        managers = app->getGlobalMgr();
        Camera* camera = managers->getConfig()->getCamera("cam");
        camera->width = static_cast<int>(kW);
        camera->height = static_cast<int>(kH);
        camera->angle = 0;
        managers->getSceneMgr()->createScene("cam", static_cast<int>(kW), static_cast<int>(kH), 64, 64);
    }
    void use(DETECTTYPE type) {
        auto* op = new ZuOperateChangeDetectDataType(app, type);
        managers->getOperateMgr()->pushOperate(op);
        op->release();
        frame();
    }
    void push(const Face& face, bool floats = true) {
        Record r = record({face}, floats);
        app->getAppInter()->setDetectData("cam", r.bytes.data(), r.size());
        frame();
    }
    ZuPerson* person() { return managers->getPersonSys()->getPerson("cam", 1); }
    ZuPersonAnimojiMgr* animoji() { return person()->getAnimojiMgr(); }
    float value(MORPHINDEX i) { return animoji()->getValue(i); }
    const ZuPersonAnimojiBase::Measures& measures() { return animoji()->getTracker()->getMeasures(); }

    // The FP standard face, moved into the frame; every call a little
    // further right so that no two frames look like the same detection.
    Face neutral() {
        const StanderFace* s = managers->getMeshDataMgr()->getStanderFace("standerface_fp");
        Face f;
        for (int i = 0; i < 106; ++i) f.points.push_back({s->data[i * 2] + 290.0f + shift, s->data[i * 2 + 1] - 140.0f});
        shift += 0.5f;
        return f;
    }
    // The scale the tracker divides by: contour ends 500 apart.
    static float scaleOf(const Face& f) { return dist(f.points[0], f.points[32]) / 500.0f; }

    ZuGlobalMgr* managers = nullptr;
    float shift = 0.0f;
};

} // namespace

TEST_F(AnimojiTest, ShippedTableLoadsAndItsFrontRowIsTheStandardFace) {
    use(DETECTTYPE_FP);
    ZuPosData* table = animoji()->getPosData();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getRowCount(), 91 * 91);
    EXPECT_NE(table->getPos(15, 15), nullptr);
    EXPECT_NE(table->getPos(105, 105), nullptr);
    EXPECT_EQ(table->getPos(14, 60), nullptr);
    const int* row = table->getPos(60, 60);
    ASSERT_NE(row, nullptr);
    const StanderFace* s = managers->getMeshDataMgr()->getStanderFace("standerface_fp");
    ASSERT_NE(s, nullptr);
    auto stdPt = [&](int k) { return Pt{s->data[kKeys[k] * 2], s->data[kKeys[k] * 2 + 1]}; };
    auto rowPt = [&](int k) { return Pt{static_cast<float>(row[k * 2]), static_cast<float>(row[k * 2 + 1])}; };
    const float scale = dist(stdPt(0), stdPt(2)) / 500.0f;
    for (int i = 0; i < 29; ++i)
        for (int j = i + 1; j < 29; ++j)
            EXPECT_NEAR(dist(rowPt(i), rowPt(j)), dist(stdPt(i), stdPt(j)) / scale, 1.5f) << i << " " << j;

    // Every person reads the same table: the engine loads it once.
    ZuPerson* second = managers->getPersonSys()->getPerson("cam", 2);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->getAnimojiMgr()->getPosData(), table);

    // A file that is not there leaves a table empty.
    ZuPosData missing(app);
    missing.retain();
    missing.init("shader/animoji_pos/none.pos");
    EXPECT_EQ(missing.getRowCount(), 0);
}

TEST_F(AnimojiTest, MouthAndEyesDriveTheirWeightsWithTheirSmoothing) {
    use(DETECTTYPE_FP);
    for (int n = 0; n < 6; ++n) push(neutral());
    ASSERT_NE(animoji()->getValues(), nullptr);
    for (int i = 0; i < MORPHINDEX_COUNT; ++i) {
        EXPECT_GE(animoji()->getValues()[i], 0.0f) << i;
        EXPECT_LE(animoji()->getValues()[i], 1.0f) << i;
    }
    // The standard face's eyes are open wider than the blink threshold.
    EXPECT_FLOAT_EQ(value(Blink_R), 0.0f);
    EXPECT_FLOAT_EQ(value(Blink_L), 0.0f);

    // Inner lips apart: the open-mouth weight follows at 0.6 of the way.
    const float closedMouth = value(MouthOpen);
    Face open = neutral();
    open.points[102].y -= 30.0f;
    push(open);
    const float target = (dist(open.points[98], open.points[102]) / scaleOf(open) - 5.0f) / 100.0f;
    EXPECT_NEAR(value(MouthOpen), closedMouth + (target - closedMouth) * 0.6f, 1e-4);
    EXPECT_GT(value(MouthOpen), closedMouth);
    // Lips pressed together measure below 0: the weight goes to 0.
    Face shut = neutral();
    shut.points[98] = shut.points[102];
    for (int n = 0; n < 30; ++n) {
        push(shut);
        shut = neutral();
        shut.points[98] = shut.points[102];
    }
    EXPECT_LT(value(MouthOpen), 1e-5f);

    // A little jitter of the left lids first, so that only the right eye
    // counts as changing fast; then the right lids meet.
    Face jitter = neutral();
    jitter.points[72].y += 0.5f;
    push(jitter);
    float before = value(Blink_R);
    for (int n = 0; n < 3; ++n) {
        Face wink = neutral();
        wink.points[72].y += 0.5f;
        wink.points[75] = wink.points[76];
        push(wink);
        // Cut to 1 and smoothed at 0.3 of the remainder per update.
        EXPECT_NEAR(value(Blink_R), before + (1.0f - before) * 0.3f, 1e-5) << n;
        before = value(Blink_R);
    }
    EXPECT_FLOAT_EQ(value(Blink_L), 0.0f);

    // Both eyes shut together.
    for (int n = 0; n < 10; ++n) {
        Face both = neutral();
        both.points[75] = both.points[76];
        both.points[72] = both.points[73];
        push(both);
    }
    EXPECT_GT(value(Blink_L), 0.9f);
    EXPECT_GT(value(Blink_R), 0.9f);
}

TEST_F(AnimojiTest, HeadPoseMovesOnlyWhileTheFaceMoves) {
    use(DETECTTYPE_FP);
    ZuPersonAnimojiMgr* mgr = animoji();
    Face f = neutral();
    f.yaw = 20.0f;
    push(f);
    // The face jumps 50 px a frame: the landmark sum moves far, the pose
    // follows the record's yaw (times 1.2) part of the way each time.
    float last = mgr->getYaw();
    for (int n = 0; n < 3; ++n) {
        for (Pt& p : f.points) p.x += 50.0f;
        push(f);
        EXPECT_GT(mgr->getYaw(), last) << n;
        EXPECT_LT(mgr->getYaw(), 24.0f) << n;
        last = mgr->getYaw();
    }
    EXPECT_EQ(mgr->getMovingCount(), 2);

    // Tiny moves (motion below 40): once the first of them is seen, k is 0
    // and the pose stands still, whatever angles the records carry.
    for (Pt& p : f.points) p.x += 0.1f;
    push(f);
    const float still = mgr->getYaw();
    for (int n = 0; n < 4; ++n) {
        for (Pt& p : f.points) p.x += 0.1f;
        f.yaw = -30.0f + n;
        push(f);
        EXPECT_EQ(mgr->getMovingCount(), 0);
        EXPECT_FLOAT_EQ(mgr->getYaw(), still) << n;
    }
}

TEST_F(AnimojiTest, TheSameDetectionTwiceIsMeasuredOnce) {
    use(DETECTTYPE_FP);
    for (int n = 0; n < 3; ++n) push(neutral());
    Face f = neutral();
    push(f);
    std::vector<float> kept(animoji()->getValues(), animoji()->getValues() + MORPHINDEX_COUNT);
    const float keptMouth = measures().mouthOpen;
    // Same landmark 43 x, though the mouth opened: skipped as a repeat.
    Face again = f;
    again.points[102].y -= 40.0f;
    push(again);
    EXPECT_FLOAT_EQ(measures().mouthOpen, keptMouth);
    for (int i = 0; i < MORPHINDEX_COUNT; ++i) EXPECT_FLOAT_EQ(animoji()->getValues()[i], kept[i]) << i;
    // The next real frame is measured.
    Face next = neutral();
    next.points[102].y -= 40.0f;
    push(next);
    EXPECT_GT(measures().mouthOpen, keptMouth + 20.0f);
}

TEST_F(AnimojiTest, OtherBackEndsGiveNoValues) {
    use(DETECTTYPE_ST);
    push(neutral(), false);
    ASSERT_EQ(person()->getExistState(), 1);
    ZuPersonAnimojiMgr* mgr = animoji();
    ASSERT_NE(mgr, nullptr);
    EXPECT_EQ(mgr->getDetectType(), DETECTTYPE_ST);
    EXPECT_EQ(mgr->getTracker(), nullptr);
    EXPECT_EQ(mgr->getValues(), nullptr);
    EXPECT_FLOAT_EQ(mgr->getValue(MouthOpen), 0.0f);
    EXPECT_FALSE(mgr->getHeadKeepMoving());
    // Back on FP the tracker comes.
    use(DETECTTYPE_FP);
    push(neutral());
    EXPECT_NE(animoji()->getValues(), nullptr);
    EXPECT_TRUE(animoji()->getHeadKeepMoving()); // first frame: the head counts as moving
}
