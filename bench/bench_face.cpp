// Costs of a face record on the pushing thread: parsing one record of each
// back end, and a whole FP face update (person, expressions, blend shapes).
// No GL is needed: records go to the detector as setDetectData hands them on.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataMgr.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonAnimojiMgr.h"
#include "person/ZuPersonExpressionExt.h"
#include "person/ZuPosData.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <vector>

namespace {

struct Record {
    std::vector<uint8_t> bytes;
    void i32(int32_t v) {
        uint8_t b[4];
        std::memcpy(b, &v, 4);
        bytes.insert(bytes.end(), b, b + 4);
    }
    void f32(float v) {
        int32_t i;
        std::memcpy(&i, &v, 4);
        i32(i);
    }
};

constexpr int kFaces = 4;

// Count, then per face the head (angles, rectangle) and the landmarks; AS
// and Self add their own blocks behind, as the wire formats have them.
Record makeRecord(DETECTTYPE type) {
    const int points = type == DETECTTYPE_AS ? 101 : (type == DETECTTYPE_SELF ? 70 : 106);
    const bool floats = type == DETECTTYPE_FP || type == DETECTTYPE_SELF;
    Record r;
    r.i32(kFaces);
    for (int f = 0; f < kFaces; ++f) {
        r.f32(1.0f + f);
        r.f32(-5.0f + f);
        r.f32(3.0f);
        for (int v : {100 + 200 * f, 200, 300 + 200 * f, 400}) r.i32(v);
        for (int i = 0; i < points; ++i) {
            const float x = 100.0f + 200 * f + (i % 11) * 15.0f, y = 200.0f + (i / 11) * 18.0f;
            if (floats) {
                r.f32(x);
                r.f32(y);
            } else {
                r.i32(static_cast<int32_t>(x));
                r.i32(static_cast<int32_t>(y));
            }
        }
        if (type == DETECTTYPE_SELF) {
            for (int i = 0; i < (70 + 28 + 28 + 6 + 6) * 3; ++i) r.f32(static_cast<float>(i));
            for (int i = 0; i < 16; ++i) r.f32(static_cast<float>(i));
            for (int k = 0; k < 4; ++k) r.bytes.push_back(0);
        }
    }
    if (type == DETECTTYPE_AS) {
        r.i32(kFaces);
        for (int f = 0; f < kFaces; ++f) {
            for (int k = 0; k < 24; ++k) r.bytes.push_back(static_cast<uint8_t>(k));
            for (int k = 0; k < 48; ++k) r.f32(static_cast<float>(k));
            for (int i = 0; i < 101 * 3; ++i) r.f32(static_cast<float>(i));
        }
    }
    return r;
}

struct Engine {
    Engine() {
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
    }
    ~Engine() {
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    ZuAppMain* app;
};

// One 4-face record through the back end's detector: length check, copy into
// the swap buffer, parse into the generator's faces.
void BM_ParseRecord(benchmark::State& state) {
    const auto type = static_cast<DETECTTYPE>(state.range(0));
    Engine engine;
    ZuDetectMgr* detects = engine.app->getGlobalMgr()->getDetectMgr();
    detects->init(type);
    // Without its data type the manager has no generator to parse into.
    engine.app->getGlobalMgr()->getDataMgr()->setDetectDataType(type);
    ZuDetectBase* detect = detects->getDetect();
    const Record r = makeRecord(type);
    const int length = static_cast<int>(r.bytes.size());
    bool ok = true;
    for (auto _ : state) ok &= detect->pushData("cam", r.bytes.data(), length);
    if (!ok) state.SkipWithError("record refused");
    detects->destroy();
}
BENCHMARK(BM_ParseRecord)->ArgName("backend")->DenseRange(DETECTTYPE_AS, DETECTTYPE_SELF);

// One FP face: parse, the person takes it, runs geometry, expressions (every
// frame: the clock steps past the rate limit) and blend-shape tracking.
void BM_FpFaceFrame(benchmark::State& state) {
    Engine engine;
    ZuDetectMgr* detects = engine.app->getGlobalMgr()->getDetectMgr();
    detects->init(DETECTTYPE_FP);
    engine.app->getGlobalMgr()->getDataMgr()->setDetectDataType(DETECTTYPE_FP);
    auto* person = new ZuPerson();
    person->setSceneName("cam");
    person->setPersonID(1);
    person->init(engine.app);
    person->setDetectType(DETECTTYPE_FP);
    int64_t micros = 0;
    person->getPersonExpression()->setClock([&micros] {
        micros += 40000;
        return ZuAppMain::WallTime{micros / 1000000, micros % 1000000};
    });
    Record r = makeRecord(DETECTTYPE_FP);
    r.bytes.resize(4 + (28 + 106 * 8)); // one face
    std::memcpy(r.bytes.data(), "\1\0\0\0", 4);
    const int length = static_cast<int>(r.bytes.size());
    // Landmark 43's x moves every frame, as a live face does, so that no frame
    // is taken for a repeat of the last.
    const size_t mark = 4 + 28 + 43 * 8;
    float x = 0.0f;
    for (auto _ : state) {
        x += 0.25f;
        if (x > 50.0f) x = 0.0f;
        const float value = 400.0f + x;
        std::memcpy(r.bytes.data() + mark, &value, 4);
        detects->getDetect()->pushData("cam", r.bytes.data(), length);
    }
    if (!person->getAnimojiMgr()->getValues()) state.SkipWithError("no animoji tracker");
    // Proof that the whole path ran: the person holds the face and the
    // smoothed pose has moved towards the record's angles.
    if (person->getExistState() != 1 || person->getFaceDataX(43) <= 0.0f)
        state.SkipWithError("the person never saw the face");
    person->destroy();
    person->release();
    detects->destroy();
}
BENCHMARK(BM_FpFaceFrame);

} // namespace

namespace {

// Reading the head-pose position table, as each person does when its back
// end turns to FP: the whole file parsed into rows.
void BM_LoadPositionTable(benchmark::State& state) {
    Engine engine;
    engine.app->addRespath(QZ_BENCH_ASSETS);
    ZuPosData table(engine.app);
    for (auto _ : state) {
        table.init("shader/animoji_pos/animoji_def_pos.pos");
        if (table.getRowCount() == 0) {
            state.SkipWithError("no position table");
            break;
        }
    }
    state.counters["rows"] = table.getRowCount();
}
BENCHMARK(BM_LoadPositionTable)->Unit(benchmark::kMillisecond);

} // namespace
