// Face records built byte by byte from the trackers' wire layout, pushed the
// way a host does, and read back from the generators in engine coordinates.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataGenAS.h"
#include "data/ZuDataGenFP.h"
#include "data/ZuDataGenST.h"
#include "data/ZuDataGenSelf.h"
#include "data/ZuDataMgr.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "event/ZuEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "operate/ZuOperateMgr.h"
#include "support/LogCapture.h"
#include "support/WireRecord.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

namespace {

// The shared wire writer, plus runs of filler bytes.
struct Record : WireRecord {
    void raw(uint8_t v, int n) { bytes.insert(bytes.end(), static_cast<size_t>(n), v); }
};

// Sent values of face f: distinct per face so that slots cannot be mixed up.
float roll(int f) { return 10.0f + f; }
float yaw(int f) { return 20.0f + f; }
float pitch(int f) { return -30.0f + f; }
float px(int f, int i) { return static_cast<float>(100 + 3 * i + f); }
float py(int f, int i) { return static_cast<float>(50 + 2 * i + 7 * f); }

void faceHead(Record& r, int f) {
    r.f32(roll(f));
    r.f32(yaw(f));
    r.f32(pitch(f));
    r.i32(100 + f); // left
    r.i32(200 + f); // top
    r.i32(300 + f); // right
    r.i32(400 + f); // bottom
}

void facePoints(Record& r, int f, int n, bool floats) {
    for (int i = 0; i < n; ++i) {
        if (floats) {
            r.f32(px(f, i) + 0.25f);
            r.f32(py(f, i) + 0.5f);
        } else {
            r.i32(static_cast<int32_t>(px(f, i)));
            r.i32(static_cast<int32_t>(py(f, i)));
        }
    }
}

Record asRecord(int faces, int repeatedCount) {
    Record r;
    r.i32(faces);
    for (int f = 0; f < faces; ++f) {
        faceHead(r, f);
        facePoints(r, f, 101, false);
    }
    r.i32(repeatedCount);
    for (int f = 0; f < faces; ++f) {
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

Record plainRecord(int faces, int points, bool floats) {
    Record r;
    r.i32(faces);
    for (int f = 0; f < faces; ++f) {
        faceHead(r, f);
        facePoints(r, f, points, floats);
    }
    return r;
}

Record selfRecord(int faces) {
    Record r;
    r.i32(faces);
    for (int f = 0; f < faces; ++f) {
        faceHead(r, f);
        facePoints(r, f, 70, true);
        // Point sets numbered by a running value so that each lands where it belongs.
        for (int i = 0; i < 70 + 28 + 28 + 6 + 6; ++i) {
            r.f32(i * 3.0f);
            r.f32(i * 3.0f + 1);
            r.f32(i * 3.0f + 2);
        }
        for (int i = 0; i < 8; ++i) {
            r.f32(-1.0f - i);
            r.f32(-100.0f - i);
        }
        r.bytes.push_back(0xde);
        r.bytes.push_back(0xad);
        r.bytes.push_back(0xbe);
        r.bytes.push_back(0xef);
    }
    return r;
}

// The rotation table, written out again from the layout description.
void expectedPoint(float x, float y, float w, float h, int angle, float* ex, float* ey) {
    switch (angle) {
    case 0: *ex = x; *ey = h - y; break;
    case 90: *ex = y; *ey = x; break;
    case 180: *ex = w - x; *ey = y; break;
    case 270: *ex = h - y; *ey = w - x; break;
    default: *ex = x; *ey = y; break;
    }
}

class ArrivalCounter : public ZuEventProc {
public:
    using ZuEventProc::ZuEventProc;
    bool procEvent(ZuEvent* event) override {
        if (event->type == ZU_EVENT_DETECT_ARRIVED && event->sceneName.size() == 0) ++arrived;
        return true;
    }
    int arrived = 0;
};

class Listener : public ZuObject {
public:
    void onData(ZuObject*) { ++calls; }
    int calls = 0;
};

class DetectRecordTest : public ::testing::Test {
protected:
    static constexpr float kW = 1280.0f;
    static constexpr float kH = 720.0f;

    void SetUp() override {
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
        managers = app->getGlobalMgr();
        host = app->getAppInter();
        setAngle(0);
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    void setAngle(int angle) {
        Camera* camera = managers->getConfig()->getCamera("cam");
        camera->width = static_cast<int>(kW);
        camera->height = static_cast<int>(kH);
        camera->angle = angle;
    }
    // The change of back end as the operation does it, without waiting a frame.
    void use(DETECTTYPE type) {
        managers->getDetectMgr()->init(type);
        managers->getDataMgr()->setDetectDataType(type);
    }
    void push(const Record& r) { host->setDetectData("cam", r.bytes.data(), r.size()); }
    // Pushed events reach receivers one update after the pools are exchanged.
    void deliverEvents() {
        managers->getEventMgr()->update(0.0f);
        managers->getEventMgr()->update(0.0f);
    }

    template <class Rec> void expectHead(const Rec* rec, int f, float angle) {
        ASSERT_NE(rec, nullptr);
        EXPECT_EQ(rec->valid, 1);
        EXPECT_EQ(rec->left, 100 + f);
        EXPECT_EQ(rec->right, 300 + f);
        EXPECT_EQ(rec->top, static_cast<int>(kH) - (200 + f));
        EXPECT_EQ(rec->bottom, static_cast<int>(kH) - (400 + f));
        (void)angle;
    }
    void expectPoints(const float* points, int f, int n, int angle, float dx, float dy) {
        for (int i = 0; i < n; ++i) {
            float ex, ey;
            expectedPoint(px(f, i) + dx, py(f, i) + dy, kW, kH, angle, &ex, &ey);
            ASSERT_FLOAT_EQ(points[i * 2], ex) << "point " << i << " angle " << angle;
            ASSERT_FLOAT_EQ(points[i * 2 + 1], ey) << "point " << i << " angle " << angle;
        }
    }

    ZuAppMain* app = nullptr;
    ZuGlobalMgr* managers = nullptr;
    ZuAppNative* host = nullptr;
};

const int kAngles[] = {0, 90, 180, 270, 45};

} // namespace

TEST_F(DetectRecordTest, AsFacesAreRotatedAndCarryTheirPoseData) {
    use(DETECTTYPE_AS);
    ZuDataGenAS* gen = managers->getDataMgr()->getDataGenAS();
    ASSERT_NE(gen, nullptr);
    for (int angle : kAngles) {
        setAngle(angle);
        // The repeated count disagrees: the head's 2 is the one used.
        push(asRecord(2, 7));
        for (int f = 0; f < 2; ++f) {
            const PERSON_AS_DATA* rec = gen->getData(f + 1);
            expectHead(rec, f, angle);
            EXPECT_FLOAT_EQ(rec->roll, roll(f)) << "AS angles stay as sent";
            EXPECT_FLOAT_EQ(rec->yaw, yaw(f));
            EXPECT_FLOAT_EQ(rec->pitch, pitch(f));
            expectPoints(rec->facePoints, f, 101, angle, 0, 0);
            EXPECT_EQ(rec->eyeData[0], f);
            EXPECT_EQ(rec->eyeData[23], 23 + f);
            EXPECT_FLOAT_EQ(rec->getMatM()[5], 5.0f + f);
            EXPECT_FLOAT_EQ(rec->getMatV()[15], 115.0f + f);
            EXPECT_FLOAT_EQ(rec->getMatP()[0], 200.0f + f);
            EXPECT_FLOAT_EQ(rec->getFace3dData()[100].x, 100.5f);
            EXPECT_FLOAT_EQ(rec->getFace3dData()[100].y, -100.25f);
            EXPECT_FLOAT_EQ(rec->getFace3dData()[100].z, f * 1000.0f + 100);
        }
        EXPECT_EQ(gen->getData(3)->valid, 0);
    }
}

TEST_F(DetectRecordTest, StTurnsRollByTheCameraAndFlipsYawAndPitch) {
    use(DETECTTYPE_ST);
    ZuDataGenST* gen = managers->getDataMgr()->getDataGenST();
    ASSERT_NE(gen, nullptr);
    for (int angle : kAngles) {
        setAngle(angle);
        push(plainRecord(4, 106, false));
        for (int f = 0; f < 4; ++f) {
            const PERSON_FP_DATA* rec = gen->getData(f + 1);
            expectHead(rec, f, angle);
            EXPECT_FLOAT_EQ(rec->roll, roll(f) + angle);
            EXPECT_FLOAT_EQ(rec->yaw, -yaw(f));
            EXPECT_FLOAT_EQ(rec->pitch, -pitch(f));
            expectPoints(rec->facePoints, f, 106, angle, 0, 0);
        }
    }
}

TEST_F(DetectRecordTest, FpReadsFloatPointsAndKeepsScenesApart) {
    use(DETECTTYPE_FP);
    ZuDataGenFP* gen = managers->getDataMgr()->getDataGenFP();
    ASSERT_NE(gen, nullptr);
    EXPECT_EQ(gen->getData("cam", 1), nullptr) << "no array before the scene's first push";
    for (int angle : kAngles) {
        setAngle(angle);
        push(plainRecord(1, 106, true));
        const PERSON_FP_DATA* rec = gen->getData("cam", 1);
        expectHead(rec, 0, angle);
        EXPECT_FLOAT_EQ(rec->roll, roll(0) + angle);
        EXPECT_FLOAT_EQ(rec->yaw, yaw(0));
        EXPECT_FLOAT_EQ(rec->pitch, -pitch(0));
        expectPoints(rec->facePoints, 0, 106, angle, 0.25f, 0.5f);
    }
    // A second scene gets slots of its own; the first keeps its face.
    Record none = plainRecord(0, 106, true);
    host->setDetectData("other", none.bytes.data(), none.size());
    ASSERT_NE(gen->getData("other", 1), nullptr);
    EXPECT_EQ(gen->getData("other", 1)->valid, 0);
    EXPECT_EQ(gen->getData("cam", 1)->valid, 1);
    EXPECT_EQ(gen->getData("never", 1), nullptr);
    EXPECT_EQ(gen->getData("cam", 0), nullptr);
    EXPECT_EQ(gen->getData("cam", 5), nullptr);
}

TEST_F(DetectRecordTest, FpTellsListenersAtOnceAndAgainAtTheNextTick) {
    use(DETECTTYPE_FP);
    ZuDataGenFP* gen = managers->getDataMgr()->getDataGenFP();
    managers->getDataMgr()->update(0.0f); // the fresh generator's first notice
    Listener listener;
    gen->registListenFunc(&listener, &Listener::onData);
    push(plainRecord(1, 106, true));
    EXPECT_EQ(listener.calls, 1);
    managers->getDataMgr()->update(0.0f);
    EXPECT_EQ(listener.calls, 2);
    managers->getDataMgr()->update(0.0f);
    EXPECT_EQ(listener.calls, 2);
    gen->unregistListenFunc(&listener, &Listener::onData);
}

TEST_F(DetectRecordTest, SelfKeepsItsPointSetsInTheirOwnOrder) {
    use(DETECTTYPE_SELF);
    ZuDataGenSelf* gen = managers->getDataMgr()->getDataGenSelf();
    ASSERT_NE(gen, nullptr);
    for (int angle : kAngles) {
        setAngle(angle);
        push(selfRecord(2));
        for (int f = 0; f < 2; ++f) {
            const PERSON_SELF_DATA* rec = gen->getData(f + 1);
            expectHead(rec, f, angle);
            EXPECT_FLOAT_EQ(rec->roll, roll(f));
            EXPECT_FLOAT_EQ(rec->yaw, yaw(f));
            EXPECT_FLOAT_EQ(rec->pitch, pitch(f));
            for (int i = 0; i < 70; ++i) {
                float ex, ey;
                expectedPoint(px(f, i) + 0.25f, py(f, i) + 0.5f, kW, kH, angle, &ex, &ey);
                ASSERT_FLOAT_EQ(rec->facePoints[i].x, ex);
                ASSERT_FLOAT_EQ(rec->facePoints[i].y, ey);
            }
            const SELF_FACE_OTHER& o = rec->other;
            EXPECT_FLOAT_EQ(o.firstPoints[67].z, 67 * 3.0f + 2);
            // Triples 68 and 69 of the first set are dropped: the second set starts at 70.
            EXPECT_FLOAT_EQ(o.secondPoints[0].x, 70 * 3.0f);
            EXPECT_FLOAT_EQ(o.thirdPoints[0].x, 98 * 3.0f);
            EXPECT_FLOAT_EQ(o.fourthPoints[0].x, 126 * 3.0f);
            EXPECT_FLOAT_EQ(o.fifthPoints[5].y, 137 * 3.0f + 1);
            // The wire sends the second pair set first.
            EXPECT_FLOAT_EQ(o.secondPairs[0].x, -1.0f);
            EXPECT_FLOAT_EQ(o.firstPairs[0].x, -5.0f);
            EXPECT_FLOAT_EQ(o.firstPairs[3].y, -107.0f);
            EXPECT_EQ(o.trailingWord[0], 0xde);
            EXPECT_EQ(o.trailingWord[3], 0xef);
        }
    }
}

TEST_F(DetectRecordTest, FewerFacesOrNoRecordClearTheOtherSlots) {
    use(DETECTTYPE_ST);
    ZuDataGenST* gen = managers->getDataMgr()->getDataGenST();
    push(plainRecord(3, 106, false));
    EXPECT_EQ(gen->getData(3)->valid, 1);
    push(plainRecord(1, 106, false));
    EXPECT_EQ(gen->getData(1)->valid, 1);
    EXPECT_EQ(gen->getData(2)->valid, 0);
    EXPECT_EQ(gen->getData(3)->valid, 0);

    // Count 0: nothing valid, the old landmarks untouched.
    const float before = gen->getData(1)->facePoints[10];
    push(plainRecord(0, 106, false));
    EXPECT_EQ(gen->getData(1)->valid, 0);
    EXPECT_FLOAT_EQ(gen->getData(1)->facePoints[10], before);

    push(plainRecord(2, 106, false));
    host->setDetectData("cam", nullptr, 0);
    EXPECT_EQ(gen->getData(1)->valid, 0);
    EXPECT_EQ(gen->getData(2)->valid, 0);
    EXPECT_EQ(gen->getData(0), nullptr);
    EXPECT_EQ(gen->getData(5), nullptr);
}

TEST_F(DetectRecordTest, ShortLongAndGarbledRecordsAreRefusedAndLogged) {
    struct Case {
        DETECTTYPE type;
        Record good;
    };
    Case cases[] = {{DETECTTYPE_AS, asRecord(2, 2)},
                    {DETECTTYPE_ST, plainRecord(2, 106, false)},
                    {DETECTTYPE_FP, plainRecord(2, 106, true)},
                    {DETECTTYPE_SELF, selfRecord(2)}};
    ArrivalCounter* counter = new ArrivalCounter(app);
    managers->getEventMgr()->registProcer(counter);
    for (Case& c : cases) {
        use(c.type);
        push(c.good);
        deliverEvents();
        ASSERT_EQ(counter->arrived, 1) << "type " << c.type;
        counter->arrived = 0;

        // A face count of 5 with room for it, and a negative count.
        Record five = c.good;
        five.bytes[0] = 5;
        five.raw(0, 5000);
        Record negative = c.good;
        negative.bytes[3] = 0x80;
        std::vector<Record> bad = {five, negative};
        Record shortOne = c.good;
        shortOne.bytes.pop_back();
        Record longOne = c.good;
        longOne.bytes.push_back(0);
        Record headOnly;
        headOnly.raw(2, 2);
        bad.push_back(shortOne);
        bad.push_back(longOne);
        bad.push_back(headOnly);

        LogCapture log;
        for (const Record& r : bad) {
            // The vector holds exactly the bytes given, so ASan sees any read past them.
            std::vector<uint8_t> exact(r.bytes);
            host->setDetectData("cam", exact.data(), static_cast<int>(exact.size()));
        }
        EXPECT_EQ(log.count("refused", ZU_LOG_WARN), 5) << "type " << c.type;
        deliverEvents();
        EXPECT_EQ(counter->arrived, 0) << "a refused record announces nothing";
    }
    // The last good record (Self, 2 faces) is still there.
    EXPECT_EQ(managers->getDataMgr()->getDataGenSelf()->getData(2)->valid, 1);
    managers->getEventMgr()->unregistProcer(counter);
    counter->release();
}

TEST_F(DetectRecordTest, WithoutADetectorPushesAreIgnored) {
    ArrivalCounter* counter = new ArrivalCounter(app);
    managers->getEventMgr()->registProcer(counter);
    Record r = plainRecord(1, 106, false);
    push(r);
    deliverEvents();
    EXPECT_EQ(counter->arrived, 0);
    // An AS detector with the ST generator still current parses nothing: the
    // block sizes differ, so it must not touch that generator.
    managers->getDetectMgr()->init(DETECTTYPE_AS);
    managers->getDataMgr()->setDetectDataType(DETECTTYPE_ST);
    push(asRecord(1, 1));
    EXPECT_EQ(managers->getDataMgr()->getDataGenST()->getData(1)->valid, 0);
    managers->getEventMgr()->unregistProcer(counter);
    counter->release();
}

TEST_F(DetectRecordTest, TheHostChangesTheBackEndThroughAnOperation) {
    host->setDetectType(DETECTTYPE_SELF);
    EXPECT_EQ(managers->getDetectMgr()->getDetect(), nullptr) << "takes effect in a later frame";
    managers->getOperateMgr()->update(33.0f);
    EXPECT_EQ(managers->getConfig()->getDetectType(), DETECTTYPE_SELF);
    ASSERT_NE(managers->getDetectMgr()->getDetect(), nullptr);
    EXPECT_EQ(managers->getDetectMgr()->getDetect()->getPointCount(), 70);
    EXPECT_NE(managers->getDataMgr()->getDataGenSelf(), nullptr);
    EXPECT_EQ(managers->getDataMgr()->getDataGenSelf()->dataType, 5);

    host->setDetectType(DETECTTYPE_FP);
    managers->getOperateMgr()->update(33.0f);
    EXPECT_EQ(managers->getDataMgr()->getDataGenSelf(), nullptr);
    ASSERT_NE(managers->getDataMgr()->getDataGenFP(), nullptr);
    EXPECT_EQ(managers->getDetectMgr()->getDetect()->getPointCount(), 106);

    // Not running: neither call does anything.
    app->setState("test", ZU_ENG_STATE_STOPPING);
    host->setDetectType(DETECTTYPE_AS);
    Record r = plainRecord(1, 106, true);
    push(r);
    app->setState("test", ZU_ENG_STATE_RUNNING);
    managers->getOperateMgr()->update(33.0f);
    EXPECT_EQ(managers->getDetectMgr()->getDetectType(), DETECTTYPE_FP);
    EXPECT_EQ(managers->getDataMgr()->getDataGenFP()->getData("cam", 1), nullptr);

    LogCapture log;
    managers->getDetectMgr()->init(static_cast<DETECTTYPE>(9));
    EXPECT_EQ(log.count("unknown detect type", ZU_LOG_WARN), 1);
    EXPECT_EQ(managers->getDetectMgr()->getDetectType(), DETECTTYPE_FP);
}

TEST_F(DetectRecordTest, StandardIndicesNameTheSamePlaceOnEveryBackEnd) {
    struct Expect {
        DETECTTYPE type;
        int standard, landmark, region;
    };
    const Expect expects[] = {
        // chin, first contour point, a pupil, mouth corners, nose tip, last entry
        {DETECTTYPE_AS, 0, 9, 2},    {DETECTTYPE_AS, 1, 0, 0},    {DETECTTYPE_AS, 6, 18, 1},
        {DETECTTYPE_AS, 13, 95, 2},  {DETECTTYPE_AS, 20, 75, 0},  {DETECTTYPE_AS, 23, 81, 1},
        {DETECTTYPE_AS, 26, 100, 2}, {DETECTTYPE_AS, 40, 98, 2},  {DETECTTYPE_ST, 0, 16, 2},
        {DETECTTYPE_ST, 12, 52, 0},  {DETECTTYPE_ST, 13, 104, 0}, {DETECTTYPE_ST, 32, 105, 1},
        {DETECTTYPE_ST, 27, 82, 0},  {DETECTTYPE_ST, 28, 83, 1},  {DETECTTYPE_ST, 40, 45, 2},
        {DETECTTYPE_FP, 21, 93, 2},  {DETECTTYPE_FP, 22, 102, 2}, {DETECTTYPE_FP, 11, 73, 0},
        {DETECTTYPE_SELF, 0, 8, 2},  {DETECTTYPE_SELF, 17, 20, 0}, {DETECTTYPE_SELF, 19, 20, 0},
        {DETECTTYPE_SELF, 36, 23, 1}, {DETECTTYPE_SELF, 38, 23, 1}, {DETECTTYPE_SELF, 32, 69, 2},
        {DETECTTYPE_SELF, 23, 54, 1}, {DETECTTYPE_SELF, 40, 29, 2},
    };
    for (const Expect& e : expects) {
        use(e.type);
        ZuDetectBase* detect = managers->getDetectMgr()->getDetect();
        ASSERT_NE(detect, nullptr);
        EXPECT_EQ(detect->transformIndex(e.standard), e.landmark) << e.type << "/" << e.standard;
        EXPECT_EQ(detect->getIndexRegion(e.standard), e.region) << e.type << "/" << e.standard;
        EXPECT_EQ(detect->transformIndex(41), 0);
        EXPECT_EQ(detect->transformIndex(-1), 0);
    }
}
