// The copy target: an AS face pushed as a host does is reshaped into the
// proportions of a standard face while it keeps the user's bone lengths, in
// bounded steps, and only while the copy target is on.
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
#include "person/ZuPersonCopyTarget.h"
#include "person/ZuPersonSys.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <cmath>
#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr int kW = 1280;
constexpr int kH = 720;
constexpr int kPoints = 101;
const char* const kStandard = "standerface_as_simplify";
// One chain step moves its point at most twice the bounded correction x 0.7:
// the correction itself and the return onto the bone's circle.
constexpr float kStepBound = 2.0f * ZuPersonCopyTarget::kFollow * ZuPersonCopyTarget::kMaxCorrection;

struct Pt {
    float x, y;
};
float dist(const Pt& a, const Pt& b) { return std::hypot(b.x - a.x, b.y - a.y); }

// The chain groups as the reshaping walks them, with their rounds: each
// chain runs from a point that stays to the one that moves last.
struct Group {
    int rounds;
    std::vector<std::vector<int>> chains;
};
const std::vector<Group> kBoneGroups = {
    {3, {{42, 41, 40, 39}, {42, 43, 44, 45}, {48, 49, 50, 39}, {48, 47, 46, 45},
         {54, 53, 52, 51}, {54, 55, 56, 57}, {60, 61, 62, 51}, {60, 59, 58, 57}}},
    {2, {{21, 20, 19}, {27, 28, 19}, {32, 33, 34}, {36, 35, 34}}},
    {3, {{21, 22, 23, 24}, {27, 26, 25, 24}, {32, 31, 30, 29}, {36, 37, 38, 29}}},
    {3, {{75, 76, 77, 78}, {81, 80, 79, 78}, {75, 86, 85, 84}, {81, 82, 83, 84}}},
    {9, {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, {18, 17, 16, 15, 14, 13, 12, 11, 10, 9}}},
};

// Little-endian AS record of one face, written independently of the engine.
std::vector<uint8_t> asRecord(const std::vector<Pt>& wire, float roll) {
    std::vector<uint8_t> bytes;
    auto i32 = [&bytes](int32_t v) {
        uint32_t u;
        std::memcpy(&u, &v, 4);
        for (int k = 0; k < 4; ++k) bytes.push_back(static_cast<uint8_t>(u >> (8 * k)));
    };
    auto f32 = [&i32](float v) {
        int32_t i;
        std::memcpy(&i, &v, 4);
        i32(i);
    };
    i32(1);
    f32(roll);
    f32(0.0f);
    f32(0.0f);
    for (int v : {400, 100, 900, 600}) i32(v); // left, top, right, bottom
    for (const Pt& p : wire) {
        i32(static_cast<int32_t>(p.x));
        i32(static_cast<int32_t>(p.y));
    }
    i32(1);
    for (int k = 0; k < 24; ++k) bytes.push_back(0);
    for (int k = 0; k < 3 * 16 + kPoints * 3; ++k) f32(0.0f);
    return bytes;
}

class CopyTargetTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override { return {sourceAssets(), extra.path()}; }
    void SetUp() override {
        EngineTest::SetUp();
        managers = app->getGlobalMgr();
        Camera* camera = managers->getConfig()->getCamera("cam");
        camera->width = kW;
        camera->height = kH;
        camera->angle = 0;
        managers->getSceneMgr()->createScene("cam", kW, kH, 64, 64);
        auto* op = new ZuOperateChangeDetectDataType(app, DETECTTYPE_AS);
        managers->getOperateMgr()->pushOperate(op);
        op->release();
        frame();
        standard = managers->getMeshDataMgr()->getStanderFace(kStandard);
        ASSERT_NE(standard, nullptr);
        person = managers->getPersonSys()->getPerson("cam", 1);
        ASSERT_NE(person, nullptr);
    }
    // Pushes a face given in engine coordinates (y up); returns the live
    // landmarks as the person keeps them (whole pixels from the wire).
    std::vector<Pt> push(const std::vector<Pt>& face, float roll) {
        std::vector<Pt> wire, live;
        for (const Pt& p : face) {
            wire.push_back({p.x, kH - p.y});
            live.push_back({std::trunc(p.x), kH - std::trunc(kH - p.y)});
        }
        const std::vector<uint8_t> record = asRecord(wire, roll);
        app->getAppInter()->setDetectData("cam", record.data(), static_cast<int>(record.size()));
        frame();
        return live;
    }
    // The standard face scaled by sx, sy about its nose bottom, turned by
    // degrees, and moved to the middle of the frame.
    std::vector<Pt> shapedFace(float sx, float sy, float degrees) const {
        const float cx = standard->data[2 * 99], cy = standard->data[2 * 99 + 1];
        const float a = degrees * static_cast<float>(M_PI) / 180.0f;
        std::vector<Pt> face;
        for (int i = 0; i < kPoints; ++i) {
            const float dx = (standard->data[2 * i] - cx) * sx, dy = (standard->data[2 * i + 1] - cy) * sy;
            face.push_back({640.0f + dx * std::cos(a) - dy * std::sin(a), 360.0f + dx * std::sin(a) + dy * std::cos(a)});
        }
        return face;
    }
    Pt shown(int i) const { return {person->getFaceDataX(i), person->getFaceDataY(i)}; }

    TempDir extra;
    ZuGlobalMgr* managers = nullptr;
    const StanderFace* standard = nullptr;
    ZuPerson* person = nullptr;
};

} // namespace

TEST(CopyTargetStep, KeepsTheBoneAndBoundsTheCorrection) {
    const ZuVec2 A(100, 100), B(150, 100); // a bone of 50 along x
    // Already in the standard direction: nothing to do, whatever C's length.
    ZuVec2 r = ZuPersonCopyTarget::_calcNextPoint_AS(A, B, ZuVec2(3, 0), 0.7f);
    EXPECT_NEAR(r.x, 150, 1e-4);
    EXPECT_NEAR(r.y, 100, 1e-4);
    // A small turn asked (correction under the bound): 0.7 of it is taken.
    r = ZuPersonCopyTarget::_calcNextPoint_AS(A, B, ZuVec2(50, 5), 0.7f);
    const ZuVec2 wanted(100 + 50 * 50 / std::hypot(50.0f, 5.0f), 100 + 5 * 50 / std::hypot(50.0f, 5.0f));
    const ZuVec2 P(150 + 0.7f * (wanted.x - 150), 100 + 0.7f * (wanted.y - 100));
    const float pl = std::hypot(P.x - 100, P.y - 100);
    EXPECT_NEAR(r.x, 100 + (P.x - 100) * 50 / pl, 1e-3);
    EXPECT_NEAR(r.y, 100 + (P.y - 100) * 50 / pl, 1e-3);
    // Far-off directions ask for up to 100 pixels: the step stays bounded,
    // and every result stays at the bone's length from A.
    for (const ZuVec2& C : {ZuVec2(-1, 0), ZuVec2(0, 1), ZuVec2(-1, -1), ZuVec2(0, 0)}) {
        r = ZuPersonCopyTarget::_calcNextPoint_AS(A, B, C, 0.7f);
        EXPECT_NEAR(std::hypot(r.x - A.x, r.y - A.y), 50, 1e-3) << C.x << "," << C.y;
        EXPECT_LE(std::hypot(r.x - B.x, r.y - B.y), kStepBound) << C.x << "," << C.y;
    }
    // A square turn asked: the correction is cut to 10 pixels and taken 0.7.
    r = ZuPersonCopyTarget::_calcNextPoint_AS(A, B, ZuVec2(0, 1), 0.7f);
    const float cut = 7.0f / std::sqrt(2.0f);
    const float pl2 = std::hypot(50 - cut, cut);
    EXPECT_NEAR(r.x, 100 + (50 - cut) * 50 / pl2, 1e-3);
    EXPECT_NEAR(r.y, 100 + cut * 50 / pl2, 1e-3);
    // A bone of length 0 stays a point.
    r = ZuPersonCopyTarget::_calcNextPoint_AS(A, A, ZuVec2(1, 1), 0.7f);
    EXPECT_FLOAT_EQ(r.x, 100);
    EXPECT_FLOAT_EQ(r.y, 100);
}

TEST_F(CopyTargetTest, AFaceInTheStandardProportionsKeepsItsPlaceAtAnyRoll) {
    person->setCopyTarget(kStandard);
    person->enableCopyTarget(true);
    // Smaller than the standard face and turned by its own roll: the standard
    // face turned the same way points every bone where it already points.
    for (float roll : {0.0f, 25.0f, -40.0f}) {
        SCOPED_TRACE(roll);
        const std::vector<Pt> live = push(shapedFace(0.8f, 0.8f, roll), roll);
        ASSERT_EQ(person->getExistState(), 1);
        for (const Group& group : kBoneGroups) {
            if (group.chains[0][0] == 21) continue; // brows move on afterwards, checked below
            for (const auto& chain : group.chains)
                for (int i : chain) EXPECT_LT(dist(shown(i), live[i]), 1.5f) << i;
        }
        // The brows move together along the nose bridge (97 to 98), by a
        // fifth of the brow-to-eye distance.
        const Pt b0 = shown(97), b1 = shown(98);
        const float bl = dist(b0, b1);
        const float shift = 0.2f * dist(live[26], live[42]);
        for (int i = 19; i <= 38; ++i) {
            EXPECT_NEAR(shown(i).x - live[i].x, (b1.x - b0.x) / bl * shift, 1.5f) << i;
            EXPECT_NEAR(shown(i).y - live[i].y, (b1.y - b0.y) / bl * shift, 1.5f) << i;
        }
        // The nose grows by a twentieth from the bridge top.
        EXPECT_NEAR(dist(shown(97), shown(99)), 1.05f * dist(live[97], live[99]), 0.01f);
        // Live landmarks themselves are untouched.
        for (int i = 0; i < kPoints; ++i) ASSERT_EQ(person->getFaceData()[2 * i], live[i].x) << i;
    }
}

TEST_F(CopyTargetTest, AnotherShapeMovesInBoundedStepsAndKeepsItsBones) {
    person->setCopyTarget(kStandard);
    person->enableCopyTarget(true);
    const std::vector<Pt> live = push(shapedFace(1.3f, 0.75f, 10.0f), 10.0f);
    float largest = 0.0f;
    for (const Group& group : kBoneGroups) {
        // How often the chains move each point.
        std::vector<int> moves(kPoints, 0);
        for (const std::vector<int>& chain : group.chains)
            for (size_t i = 1; i < chain.size(); ++i) moves[chain[i]] += group.rounds;
        const bool brows = group.chains[0][0] == 21;
        for (const std::vector<int>& chain : group.chains) {
            // A chain's start never moves and each step keeps the bone it
            // turns, so the first bone keeps the live face's length.
            EXPECT_NEAR(dist(shown(chain[0]), shown(chain[1])), dist(live[chain[0]], live[chain[1]]), 0.02f)
                << chain[0] << "-" << chain[1];
            for (int p : chain) {
                if (brows) continue; // moved on as a whole afterwards
                const float moved = dist(shown(p), live[p]);
                largest = std::max(largest, moved);
                EXPECT_LE(moved, moves[p] * kStepBound + 1e-3f) << p;
            }
        }
    }
    EXPECT_GT(largest, 3.0f); // the shape really was pulled

    // Off: the live landmarks again; on: the reshaped face from the next record.
    const Pt reshaped = shown(5);
    person->enableCopyTarget(false);
    for (int i = 0; i < kPoints; ++i) {
        ASSERT_EQ(shown(i).x, live[i].x) << i;
        ASSERT_EQ(shown(i).y, live[i].y) << i;
    }
    person->enableCopyTarget(true);
    EXPECT_EQ(shown(5).x, reshaped.x);
    push(shapedFace(1.3f, 0.75f, 10.0f), 10.0f);
    EXPECT_NEAR(shown(5).x, reshaped.x, 1e-3);
    EXPECT_NEAR(shown(5).y, reshaped.y, 1e-3);
}

TEST_F(CopyTargetTest, AnUnknownFaceChangesNothingAndIsToldOnce) {
    person->setCopyTarget("standerface_none");
    person->enableCopyTarget(true);
    LogCapture log;
    std::vector<Pt> live = push(shapedFace(1.3f, 0.75f, 0.0f), 0.0f);
    live = push(shapedFace(1.2f, 0.8f, 0.0f), 0.0f);
    EXPECT_EQ(log.count("standerface_none", ZU_LOG_WARN), 1);
    for (int i = 0; i < kPoints; ++i) {
        ASSERT_EQ(shown(i).x, live[i].x) << i;
        ASSERT_EQ(shown(i).y, live[i].y) << i;
    }
    // Out of range reads stay 0 with the copy target on.
    EXPECT_EQ(person->getFaceDataX(kPoints), 0.0f);
    EXPECT_EQ(person->getFaceDataY(-1), 0.0f);
}

TEST_F(CopyTargetTest, AShortStandardFaceLeavesThePointsItCannotShape) {
    // 60 points: eyes and contour, but no lips, no nose bottom.
    std::string json = "{\"param\":{\"facepoints_count\":60,\"face_left\":150,\"face_right\":550},\"data\":[";
    for (int i = 0; i < 60; ++i) {
        json += (i ? "," : "") + std::to_string(standard->data[2 * i] * 1.4f) + "," +
                std::to_string(standard->data[2 * i + 1] * 0.7f);
    }
    json += "]}";
    extra.write("shader/mesh/standerface_short.json", json);
    ASSERT_TRUE(managers->getMeshDataMgr()->loadStanderFace("standerface_short"));
    person->setCopyTarget("standerface_short");
    person->enableCopyTarget(true);
    const std::vector<Pt> live = push(shapedFace(1.0f, 1.0f, 0.0f), 0.0f);
    // Lips have no standard counterpart: unchanged. The nose wings have no
    // standard pivot: only their chains could move them, and those have none.
    for (int i = 63; i <= 94; ++i) {
        if (i == 68 || i == 69) continue; // the nose lengthening needs no standard face
        EXPECT_EQ(shown(i).x, live[i].x) << i;
        EXPECT_EQ(shown(i).y, live[i].y) << i;
    }
    // The contour is shaped.
    float contourMoved = 0.0f;
    for (int i = 0; i <= 18; ++i) contourMoved = std::max(contourMoved, dist(shown(i), live[i]));
    EXPECT_GT(contourMoved, 3.0f);
}
