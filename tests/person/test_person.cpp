// Persons fed by face records built byte by byte and pushed as a host does,
// through a running engine: slots per scene, exist states, the geometry the
// tracker derives from the landmarks, and the events it raises.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/StanderFace.h"
#include "data/ZuMeshDataMgr.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "event/ZuPersonEvent.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateMgr.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "person/ZuPersonTracker.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/WireRecord.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr float kW = 1280.0f;
constexpr float kH = 720.0f;

struct Pt {
    float x, y;
};

using Record = WireRecord;

// One face as the tracker sends it (wire coordinates, y from the top).
struct Face {
    float roll = 0, yaw = 0, pitch = 0;
    int left = 100, top = 200, right = 300, bottom = 400;
    std::vector<Pt> points;
};

// A spread of distinct points, with overrides placed like a real face.
Face makeFace(int n, int f, const std::map<int, Pt>& overrides = {}) {
    Face face;
    face.roll = 5.0f + f;
    face.yaw = -12.0f + f;
    face.pitch = 7.0f - f;
    face.left += f;
    face.right += f;
    for (int i = 0; i < n; ++i) face.points.push_back({300.0f + 4 * i + 10 * f, 150.0f + 3 * i + 5 * f});
    for (const auto& o : overrides)
        if (o.first < n) face.points[o.first] = o.second;
    return face;
}

void writeHead(Record& r, const Face& face) {
    r.f32(face.roll);
    r.f32(face.yaw);
    r.f32(face.pitch);
    r.i32(face.left);
    r.i32(face.top);
    r.i32(face.right);
    r.i32(face.bottom);
}

// ST and FP blocks; AS adds the pose part, Self the point sets behind.
Record plainRecord(const std::vector<Face>& faces, bool floats) {
    Record r;
    r.i32(static_cast<int>(faces.size()));
    for (const Face& face : faces) {
        writeHead(r, face);
        for (const Pt& p : face.points) {
            if (floats) {
                r.f32(p.x);
                r.f32(p.y);
            } else {
                r.i32(static_cast<int32_t>(p.x));
                r.i32(static_cast<int32_t>(p.y));
            }
        }
    }
    return r;
}

Record asRecord(const std::vector<Face>& faces) {
    Record r = plainRecord(faces, false);
    r.i32(static_cast<int>(faces.size()));
    for (size_t f = 0; f < faces.size(); ++f) {
        for (int k = 0; k < 24; ++k) r.bytes.push_back(static_cast<uint8_t>(k + f));
        for (int m = 0; m < 3; ++m)
            for (int k = 0; k < 16; ++k) r.f32(100.0f * m + k + f);
        for (int i = 0; i < 101; ++i) {
            r.f32(i + 0.5f);
            r.f32(-i - 0.25f);
            r.f32(f * 1000.0f + i);
        }
    }
    return r;
}

Record selfRecord(const std::vector<Face>& faces) {
    Record r;
    r.i32(static_cast<int>(faces.size()));
    for (const Face& face : faces) {
        writeHead(r, face);
        for (const Pt& p : face.points) {
            r.f32(p.x);
            r.f32(p.y);
        }
        for (int i = 0; i < (70 + 28 + 28 + 6 + 6) * 3; ++i) r.f32(static_cast<float>(i));
        for (int i = 0; i < 16; ++i) r.f32(-1.0f - i); // two sets of 4 pairs
        for (int k = 0; k < 4; ++k) r.bytes.push_back(0xab);
    }
    return r;
}

// Engine coordinates at rotation 0: y counted from the bottom.
Pt engine(const Pt& p) { return {p.x, kH - p.y}; }

// The landmark roles, written out again from the layout description.
struct Roles {
    int mouthTest[2], mouthWidth[2], eyeRef[2];
    float selfLimit;
    int leftLid[2], rightLid[2], leftEye, rightEye, noseRoot, axisBottom, mouthCenter[2], chin;
};
const Roles kRolesAS = {{89, 93}, {75, 81}, {97, 99}, 0, {42, 48}, {54, 60}, 95, 96, 97, 100, {89, 93}, 9};
const Roles kRolesFP = {{98, 102}, {75, 81}, {97, 99}, 0, {72, 73}, {76, 75}, 74, 77, 43, 49, {98, 102}, 16};
const Roles kRolesSelf = {{51, 66}, {48, 54}, {-1, -1}, 24, {38, 40}, {44, 46}, 68, 69, 27, 33, {62, 66}, 8};

float dist(const Pt& a, const Pt& b) { return std::hypot(b.x - a.x, b.y - a.y); }

// Checks what the tracker made of a face against the same measures taken here.
void expectGeometry(const ZuPersonTracker* t, const Face& face, const Roles& roles) {
    auto at = [&](int i) { return engine(face.points[static_cast<size_t>(i)]); };
    const Pt le = at(roles.leftEye), re = at(roles.rightEye), top = at(roles.noseRoot), bottom = at(roles.axisBottom);
    const float eyeDistance = dist(le, re);
    const float axisLength = dist(top, bottom);
    EXPECT_NEAR(t->eyeDistance, eyeDistance, 1e-3);
    EXPECT_NEAR(t->eyeDistanceCopy, eyeDistance, 1e-3);
    EXPECT_NEAR(t->axisLength, axisLength, 1e-3);
    EXPECT_NEAR(t->scaleX, eyeDistance / 260.0f, 1e-5);
    EXPECT_NEAR(t->scaleY, axisLength / 160.0f, 1e-5);
    EXPECT_NEAR(t->eyeLineAngle, std::atan2(re.y - le.y, re.x - le.x) * 180.0 / M_PI, 1e-3);
    EXPECT_NEAR(t->rollMask, std::atan2(top.y - bottom.y, top.x - bottom.x), 1e-5);
    // Eye to head axis: |cross| / |axis|.
    auto lineDist = [&](const Pt& p) {
        const float ax = bottom.x - top.x, ay = bottom.y - top.y;
        return std::fabs(ax * (p.y - top.y) - ay * (p.x - top.x)) / std::hypot(ax, ay);
    };
    EXPECT_NEAR(t->leftEyeAxisDistance, lineDist(le), 1e-3);
    EXPECT_NEAR(t->rightEyeAxisDistance, lineDist(re), 1e-3);
    EXPECT_NEAR(t->xAxis.x, (re.x - le.x) / eyeDistance, 1e-5);
    EXPECT_NEAR(t->xAxis.y, (re.y - le.y) / eyeDistance, 1e-5);
    EXPECT_NEAR(t->yAxis.x, -t->xAxis.y, 1e-5);
    EXPECT_NEAR(t->yAxis.y, t->xAxis.x, 1e-5);
    EXPECT_FLOAT_EQ(t->zAxis.z, 1.0f);

    const bool open = dist(at(roles.mouthTest[0]), at(roles.mouthTest[1])) >
                      0.5f * dist(at(roles.mouthWidth[0]), at(roles.mouthWidth[1]));
    EXPECT_EQ(t->mouthOpen, open);
    const float limit = roles.eyeRef[0] < 0 ? roles.selfLimit
                                            : std::fmin(0.12f * dist(at(roles.eyeRef[0]), at(roles.eyeRef[1])), 18.0f);
    EXPECT_EQ(t->leftEyeClosed, dist(at(roles.leftLid[0]), at(roles.leftLid[1])) < limit);
    EXPECT_EQ(t->rightEyeClosed, dist(at(roles.rightLid[0]), at(roles.rightLid[1])) < limit);
    const Pt mc0 = at(roles.mouthCenter[0]), mc1 = at(roles.mouthCenter[1]);
    EXPECT_FLOAT_EQ(t->mouthCenter.x, (mc0.x + mc1.x) / 2);
    EXPECT_FLOAT_EQ(t->mouthCenter.y, (mc0.y + mc1.y) / 2);
    EXPECT_FLOAT_EQ(t->chin.x, at(roles.chin).x);
    EXPECT_FLOAT_EQ(t->axisTop.y, top.y);
    EXPECT_FLOAT_EQ(t->axisBottom.x, bottom.x);
}

// An AS face with an open mouth, a shut left eye and a tilted eye line.
const std::map<int, Pt> kAsShape = {
    {95, {400, 300}}, {96, {560, 330}}, {97, {480, 300}}, {99, {475, 380}}, {100, {470, 420}},
    {42, {390, 300}}, {48, {392, 303}}, {54, {550, 320}}, {60, {552, 340}},
    {75, {430, 480}}, {81, {530, 480}}, {89, {480, 470}}, {93, {480, 530}}};

class PersonEvents : public ZuEventProc {
public:
    using ZuEventProc::ZuEventProc;
    bool procEvent(ZuEvent* event) override {
        if (auto* person = dynamic_cast<ZuPersonEvent*>(event))
            seen.push_back(std::string(person->name.c_str()) + ":" + std::to_string(person->type) + ":" +
                           person->sceneName.c_str() + ":" + std::to_string(person->personID));
        return true;
    }
    std::vector<std::string> seen;
};

class Listener : public ZuObject {
public:
    void onData(ZuObject*) { ++calls; }
    int calls = 0;
};

class PersonTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override { return {sourceAssets()}; }
    void SetUp() override {
        EngineTest::SetUp();
        managers = app->getGlobalMgr();
        persons = managers->getPersonSys();
        ASSERT_NE(persons, nullptr);
        for (const char* name : {"cam", "other"}) {
            Camera* camera = managers->getConfig()->getCamera(name);
            camera->width = static_cast<int>(kW);
            camera->height = static_cast<int>(kH);
            camera->angle = 0;
        }
        // The window matches the camera: FP converts by the window size.
        managers->getSceneMgr()->createScene("cam", static_cast<int>(kW), static_cast<int>(kH), 64, 64);
        events = new PersonEvents(app);
        managers->getEventMgr()->registProcer(events);
    }
    void TearDown() override {
        managers->getEventMgr()->unregistProcer(events);
        events->release();
        EngineTest::TearDown();
    }
    void use(DETECTTYPE type) {
        ZuOperateChangeDetectDataType* op = new ZuOperateChangeDetectDataType(app, type);
        managers->getOperateMgr()->pushOperate(op);
        op->release();
        frame();
    }
    void push(const Record* r, const char* scene = "cam") {
        app->getAppInter()->setDetectData(scene, r ? r->bytes.data() : nullptr, r ? r->size() : 0);
        frame();
    }
    ZuPerson* person(int id, const char* scene = "cam") { return persons->getPerson(scene, id); }
    const StanderFace* standard(const char* name) { return managers->getMeshDataMgr()->getStanderFace(name); }
    // The person's landmarks are the face's, converted.
    void expectLandmarks(ZuPerson* p, const Face& face) {
        ASSERT_EQ(p->getFacePtNum(), static_cast<int>(face.points.size()));
        for (int i = 0; i < p->getFacePtNum(); ++i) {
            const Pt e = engine(face.points[static_cast<size_t>(i)]);
            ASSERT_FLOAT_EQ(p->getFaceDataX(i), e.x) << i;
            ASSERT_FLOAT_EQ(p->getFaceDataY(i), e.y) << i;
        }
    }
    // The standard face centred in the upright 1280 x 720 frame.
    void expectStandardFace(ZuPerson* p, const StanderFace* face) {
        ASSERT_NE(face, nullptr);
        const float dx = (kW - face->design_img_width) / 2, dy = (kH - face->design_img_height) / 2;
        for (int i = 0; i < p->getFacePtNum(); ++i) {
            ASSERT_FLOAT_EQ(p->getFaceData()[i * 2], face->data[i * 2] + dx) << i;
            ASSERT_FLOAT_EQ(p->getFaceData()[i * 2 + 1], face->data[i * 2 + 1] + dy) << i;
        }
    }

    ZuGlobalMgr* managers = nullptr;
    ZuPersonSys* persons = nullptr;
    PersonEvents* events = nullptr;
};

} // namespace

TEST_F(PersonTest, EveryKindOfSceneHasItsOwnFourPersons) {
    ZuSceneMgr* scenes = managers->getSceneMgr();
    scenes->createScene("other", 64, 64, 64, 64);
    scenes->createOutFBOScene("fbo", 64, 64, 64, 64, 0);
    for (const char* name : {"cam", "other", "fbo"}) {
        for (int id = 1; id <= 4; ++id) {
            ZuPerson* p = person(id, name);
            ASSERT_NE(p, nullptr) << name << " " << id;
            EXPECT_EQ(p->getPersonID(), id);
            EXPECT_STREQ(p->getSceneName(), name);
            EXPECT_EQ(persons->getPersonByIndex(name, id - 1), p);
            EXPECT_EQ(p->getExistState(), 0);
            EXPECT_FALSE(p->getExist());
        }
        EXPECT_EQ(person(0, name), nullptr);
        EXPECT_EQ(person(5, name), nullptr);
        EXPECT_EQ(persons->getPersonByIndex(name, 4), nullptr);
        EXPECT_EQ(persons->getPersonByIndex(name, -1), nullptr);
    }
    EXPECT_NE(person(1, "cam"), person(1, "other"));
    EXPECT_EQ(person(1, "nowhere"), nullptr);
    EXPECT_EQ(persons->getPersonByIndex(nullptr, 0), nullptr);

    // A second creation keeps the list; the scene's end takes its persons.
    ZuPerson* first = person(1, "other");
    persons->createPersonByScene("other");
    EXPECT_EQ(person(1, "other"), first);
    EXPECT_TRUE(scenes->destroyScene("other"));
    EXPECT_EQ(person(1, "other"), nullptr);
    EXPECT_NE(person(1, "cam"), nullptr);
    persons->createPersonByScene(nullptr); // refused, no crash
}

TEST_F(PersonTest, AsFacesFillTheirPersonsAndAbsentOnesShowTheStandardFace) {
    use(DETECTTYPE_AS);
    Listener listener;
    person(1)->registListenFunc(&listener, &Listener::onData);
    const std::vector<Face> faces = {makeFace(101, 0, kAsShape), makeFace(101, 1)};
    Record r = asRecord(faces);
    push(&r);

    for (int f = 0; f < 2; ++f) {
        ZuPerson* p = person(f + 1);
        EXPECT_EQ(p->getDetectType(), DETECTTYPE_AS);
        EXPECT_EQ(p->getExistState(), 1);
        EXPECT_TRUE(p->getExist());
        EXPECT_FLOAT_EQ(p->getRoll(), faces[f].roll);
        EXPECT_FLOAT_EQ(p->getYaw(), faces[f].yaw);
        EXPECT_FLOAT_EQ(p->getPitch(), faces[f].pitch);
        EXPECT_FLOAT_EQ(p->getRLeft(), 100.0f + f);
        EXPECT_FLOAT_EQ(p->getRRight(), 300.0f + f);
        EXPECT_FLOAT_EQ(p->getRTop(), kH - 200);
        EXPECT_FLOAT_EQ(p->getRBottom(), kH - 400);
        expectLandmarks(p, faces[f]);
        EXPECT_EQ(p->getEyeData()[23], 23 + f);
        EXPECT_FLOAT_EQ(p->getMatM()[5], 5.0f + f);
        EXPECT_FLOAT_EQ(p->getMatV()[15], 115.0f + f);
        EXPECT_FLOAT_EQ(p->getMatP()[0], 200.0f + f);
        EXPECT_FLOAT_EQ(p->getFace3dData()[100 * 3 + 1], -100.25f);
        EXPECT_FLOAT_EQ(p->getFace3dData()[100 * 3 + 2], f * 1000.0f + 100);
        EXPECT_FLOAT_EQ(p->getTargetFaceData()[7], p->getFaceData()[7]);
        SCOPED_TRACE(f);
        expectGeometry(p->getTracker(), faces[f], kRolesAS);
    }
    // The shaped face really exercises both sides of each test.
    EXPECT_TRUE(person(1)->getTracker()->mouthOpen);
    EXPECT_TRUE(person(1)->getTracker()->leftEyeClosed);
    EXPECT_FALSE(person(1)->getTracker()->rightEyeClosed);
    EXPECT_EQ(person(1)->getTracker()->personID, 1);
    EXPECT_FLOAT_EQ(person(1)->getTracker()->cameraWidth, kW);
    EXPECT_EQ(persons->getPersonExistNum("cam"), 2);
    EXPECT_EQ(listener.calls, 1);

    // Out of range reads give 0 instead of touching memory.
    EXPECT_EQ(person(1)->getFaceDataX(-1), 0.0f);
    EXPECT_EQ(person(1)->getFaceDataX(101), 0.0f);
    EXPECT_EQ(person(1)->getFaceDataY(101), 0.0f);
    const StanderFace* as = standard("standerface_as_simplify");
    ASSERT_NE(as, nullptr);
    EXPECT_FLOAT_EQ(person(1)->getStandardFaceDataX(3), as->data[6]);
    EXPECT_EQ(person(1)->getStandardFaceDataY(as->facepoints_count), 0.0f);

    // Persons 3 and 4: no face, so the centred standard face.
    EXPECT_EQ(person(3)->getExistState(), 0);
    expectStandardFace(person(3), as);

    // A frame without faces: everyone goes back to the stand-by state, and
    // listeners still hear of it.
    push(nullptr);
    EXPECT_EQ(persons->getPersonExistNum("cam"), 0);
    EXPECT_EQ(person(1)->getExistState(), 0);
    EXPECT_EQ(person(1)->getRoll(), 0.0f);
    EXPECT_EQ(person(1)->getRLeft(), 0.0f);
    expectStandardFace(person(1), as);
    EXPECT_EQ(listener.calls, 2);
    person(1)->unregistListenFunc(&listener, &Listener::onData);
}

TEST_F(PersonTest, AlwaysShowOneKeepsTheFirstPersonPresentWithoutAFace) {
    use(DETECTTYPE_FP);
    managers->getConfig()->alwaysShowOne = true;
    frame();
    ZuPerson* first = person(1);
    EXPECT_EQ(first->getExistState(), 2);
    EXPECT_TRUE(first->getExist());
    EXPECT_EQ(persons->getPersonExistNum("cam"), 0);
    EXPECT_EQ(person(2)->getExistState(), 0);

    // A face for the second slot only: the first is no longer kept.
    push(nullptr);
    Record r = plainRecord({makeFace(106, 0), makeFace(106, 1)}, true);
    push(&r);
    EXPECT_EQ(first->getExistState(), 1);
    EXPECT_EQ(persons->getPersonExistNum("cam"), 2);

    // Faces gone: the first is kept again, on the centred standard face.
    push(nullptr);
    EXPECT_EQ(first->getExistState(), 2);
    EXPECT_EQ(person(2)->getExistState(), 0);
    EXPECT_EQ(persons->getPersonExistNum("cam"), 0);
    expectStandardFace(first, standard("standerface_fp_simplify"));

    managers->getConfig()->alwaysShowOne = false;
    push(nullptr);
    EXPECT_EQ(first->getExistState(), 0);
    EXPECT_FALSE(first->getExist());
}

TEST_F(PersonTest, FpFacesFollowTheirSceneAndSwitchingBackEndsResizesTheLandmarks) {
    use(DETECTTYPE_AS);
    EXPECT_EQ(person(1)->getFacePtNum(), 101);
    use(DETECTTYPE_FP);
    EXPECT_EQ(person(1)->getFacePtNum(), 106);
    EXPECT_EQ(persons->getDetectType(), DETECTTYPE_FP);
    // A scene made later starts on the current back end.
    managers->getSceneMgr()->createScene("other", static_cast<int>(kW), static_cast<int>(kH), 64, 64);
    EXPECT_EQ(person(1, "other")->getDetectType(), DETECTTYPE_FP);

    const std::vector<Face> faces = {makeFace(106, 0), makeFace(106, 1), makeFace(106, 2)};
    Record r = plainRecord(faces, true);
    push(&r, "cam");
    for (int f = 0; f < 3; ++f) {
        SCOPED_TRACE(f);
        ZuPerson* p = person(f + 1);
        EXPECT_EQ(p->getExistState(), 1);
        EXPECT_FLOAT_EQ(p->getPitch(), -faces[f].pitch); // FP turns pitch over
        EXPECT_FLOAT_EQ(p->getRoll(), faces[f].roll);    // rotation 0 adds nothing
        expectLandmarks(p, faces[f]);
        expectGeometry(p->getTracker(), faces[f], kRolesFP);
    }
    // The other scene got nothing of it.
    EXPECT_EQ(person(1, "other")->getExistState(), 0);
    EXPECT_EQ(persons->getPersonExistNum("other"), 0);

    // Fewer faces next time: the slots behind fall back.
    Record one = plainRecord({makeFace(106, 4)}, true);
    push(&one, "cam");
    EXPECT_EQ(persons->getPersonExistNum("cam"), 1);
    EXPECT_EQ(person(2)->getExistState(), 0);
    EXPECT_FLOAT_EQ(person(2)->getRoll(), 0.0f);
}

TEST_F(PersonTest, StStandsByOnItsStandardFaceAndSelfOnItsLastLandmarks) {
    use(DETECTTYPE_ST);
    const Face st = makeFace(106, 0);
    Record r = plainRecord({st}, false);
    push(&r);
    EXPECT_EQ(person(1)->getExistState(), 1);
    EXPECT_FLOAT_EQ(person(1)->getYaw(), -st.yaw);
    expectGeometry(person(1)->getTracker(), st, kRolesFP);
    push(nullptr);
    EXPECT_EQ(person(1)->getExistState(), 0);
    expectStandardFace(person(1), standard("standerface_st_simplify"));

    use(DETECTTYPE_SELF);
    EXPECT_EQ(person(1)->getFacePtNum(), 70);
    const Face self = makeFace(70, 1, {{68, {400, 300}}, {69, {520, 290}}, {27, {460, 300}}, {33, {465, 400}},
                                       {38, {380, 300}}, {40, {380, 330}}, {44, {530, 290}}, {46, {531, 300}}});
    Record s = selfRecord({self});
    push(&s);
    EXPECT_EQ(person(1)->getExistState(), 1);
    expectLandmarks(person(1), self);
    expectGeometry(person(1)->getTracker(), self, kRolesSelf);
    EXPECT_FALSE(person(1)->getTracker()->leftEyeClosed); // 30 apart: above the fixed 24
    EXPECT_TRUE(person(1)->getTracker()->rightEyeClosed);
    EXPECT_FLOAT_EQ(person(1)->getROther()->thirdPoints[0].x, (70 + 28) * 3.0f);
    EXPECT_EQ(person(1)->getROther()->trailingWord[3], 0xab);
    push(nullptr);
    EXPECT_EQ(person(1)->getExistState(), 0);
    expectLandmarks(person(1), self); // Self has no standard face: the stale landmarks stay
    EXPECT_EQ(person(1)->getStandardFaceDataX(0), 0.0f);
}

TEST_F(PersonTest, TheTrackerReportsWhenAFaceEntersAndLeavesTheFrame) {
    use(DETECTTYPE_AS);
    Record inside = asRecord({makeFace(101, 0)});
    push(&inside);
    Face edge = makeFace(101, 0);
    edge.left = 1250; // right of the 5% margin
    edge.right = 1270;
    Record outside = asRecord({edge});
    push(&outside);
    EXPECT_FALSE(person(1)->getTracker()->wholeFace);
    push(&inside);
    push(&inside); // no change, no event
    frame();
    frame();
    const std::vector<std::string> expected = {"haveWholeFace:15:cam:1", "NotWholeFace:16:cam:1",
                                               "haveWholeFace:15:cam:1"};
    // The present face is also judged for expressions, as person 1 of the scene.
    std::vector<std::string> wholeFace;
    for (const std::string& seen : events->seen)
        if (seen.find("WholeFace") != std::string::npos) wholeFace.push_back(seen);
    EXPECT_EQ(wholeFace, expected);
    EXPECT_GE(std::count(events->seen.begin(), events->seen.end(), "headnoneturn:25:cam:1"), 1);
    EXPECT_TRUE(person(1)->getTracker()->wholeFace);
}
