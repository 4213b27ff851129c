// The landmark converter: 68-point faces turned into each tracker's record,
// pushed through the engine's own detectors and read back in engine
// coordinates; and the refusals of malformed landmark files.
#include "FaceRecordBuilder.h"
#include "FaceRecordSource.h"
#include "HostOptions.h"
#include "LandmarkFile.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "data/ZuDataGenAS.h"
#include "data/ZuDataGenFP.h"
#include "data/ZuDataGenST.h"
#include "data/ZuDataGenSelf.h"
#include "data/ZuDataMgr.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using Backend = FaceRecordBuilder::Backend;
using Point = LandmarkFile::Point;

const char* const kSample = QZ_SOURCE_DIR "/samples/faces/astronaut.landmarks.json";
const Backend kBackends[] = {Backend::AS, Backend::ST, Backend::FP, Backend::Self};

// A parsed face as the engine holds it: angles and landmarks, y up.
struct EngineFace {
    float roll = 0, yaw = 0, pitch = 0;
    int top = 0, bottom = 0, left = 0, right = 0;
    std::vector<Point> points;
};

class FaceRecordTest : public ::testing::Test {
protected:
    static constexpr int kSize = 512; // the astronaut photo

    void SetUp() override {
        ASSERT_TRUE(file.load(kSample)) << file.error();
        ASSERT_EQ(file.faces().size(), 1u);
        app = new ZuAppMain();
        app->init();
        app->initZuBase();
        Camera* camera = app->getGlobalMgr()->getConfig()->getCamera("cam");
        camera->width = kSize;
        camera->height = kSize;
        camera->angle = 0;
    }
    void TearDown() override {
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }

    // Switches the engine to the back end, pushes the record as a host does
    // and reads person 1 back; false when the slot is not a valid face.
    bool pushAndRead(Backend backend, const std::vector<uint8_t>& record, EngineFace& out) {
        DETECTTYPE type = static_cast<DETECTTYPE>(FaceRecordBuilder::detectType(backend));
        ZuGlobalMgr* managers = app->getGlobalMgr();
        managers->getDetectMgr()->init(type);
        managers->getDataMgr()->setDetectDataType(type);
        app->getAppInter()->setDetectData("cam", record.data(), static_cast<int>(record.size()));
        switch (backend) {
        case Backend::AS: return copy(managers->getDataMgr()->getDataGenAS()->getData(1), 101, out);
        case Backend::ST: return copy(managers->getDataMgr()->getDataGenST()->getData(1), 106, out);
        case Backend::FP: return copy(managers->getDataMgr()->getDataGenFP()->getData("cam", 1), 106, out);
        case Backend::Self: {
            PERSON_SELF_DATA* rec = managers->getDataMgr()->getDataGenSelf()->getData(1);
            if (!copyHead(rec, out)) return false;
            for (const SELF_PT& p : rec->facePoints) out.points.push_back({p.x, p.y});
            return true;
        }
        }
        return false;
    }
    template <class Rec> static bool copyHead(const Rec* rec, EngineFace& out) {
        if (!rec || rec->valid != 1) return false;
        out.roll = rec->roll;
        out.yaw = rec->yaw;
        out.pitch = rec->pitch;
        out.top = rec->top;
        out.bottom = rec->bottom;
        out.left = rec->left;
        out.right = rec->right;
        out.points.clear();
        return true;
    }
    template <class Rec> static bool copy(const Rec* rec, int count, EngineFace& out) {
        if (!copyHead(rec, out)) return false;
        for (int i = 0; i < count; ++i) out.points.push_back({rec->facePoints[2 * i], rec->facePoints[2 * i + 1]});
        return true;
    }
    int standard(int index) { return app->getGlobalMgr()->getDetectMgr()->getDetect()->transformIndex(index); }

    // A source point as the engine shows it: y counted from the bottom.
    Point flipped(Point p) const { return {p.x, kSize - p.y}; }

    LandmarkFile file;
    ZuAppMain* app = nullptr;
};

size_t expectedBytes(Backend backend, int faces) {
    switch (backend) {
    case Backend::AS: return 4 + faces * 836 + 4 + faces * 1428;
    case Backend::ST:
    case Backend::FP: return 4 + faces * 876;
    case Backend::Self: return 4 + faces * 2312;
    }
    return 0;
}

} // namespace

TEST_F(FaceRecordTest, EveryBackEndParsesToTheSourceKeyPointsAndTheSamePose) {
    const LandmarkFile::Face& source = file.faces()[0];
    // Standard index and the iBUG point it names, or -1 and -2 for the pupils.
    const struct {
        int standard;
        int ibug;
        const char* what;
    } keys[] = {{12, 36, "left eye outer corner"},  {14, 39, "left eye inner corner"},
                {31, 42, "right eye inner corner"}, {33, 45, "right eye outer corner"},
                {20, 48, "left mouth corner"},      {23, 54, "right mouth corner"},
                {0, 8, "chin"},                     {13, -1, "left pupil"},
                {32, -2, "right pupil"}};
    EngineFace first;
    for (Backend backend : kBackends) {
        SCOPED_TRACE(FaceRecordBuilder::backendName(backend));
        std::vector<uint8_t> record = FaceRecordBuilder::build(file.faces(), backend);
        EXPECT_EQ(record.size(), expectedBytes(backend, 1));
        EngineFace face;
        ASSERT_TRUE(pushAndRead(backend, record, face));
        ASSERT_EQ(static_cast<int>(face.points.size()), FaceRecordBuilder::pointCount(backend));

        for (const auto& key : keys) {
            Point want = flipped(key.ibug >= 0 ? source.points[key.ibug] : source.pupils[-1 - key.ibug]);
            Point got = face.points[standard(key.standard)];
            // Integer back ends round to the pixel.
            EXPECT_NEAR(got.x, want.x, 1.0f) << key.what;
            EXPECT_NEAR(got.y, want.y, 1.0f) << key.what;
        }
        // The nose tip has no standard index of its own on every back end.
        const int noseTip = backend == Backend::AS ? 100 : backend == Backend::Self ? 30 : 46;
        EXPECT_NEAR(face.points[noseTip].x, source.points[30].x, 1.0f);
        EXPECT_NEAR(face.points[noseTip].y, kSize - source.points[30].y, 1.0f);

        // Rectangle from the detector's box, top above bottom once flipped.
        EXPECT_EQ(face.left, 181);
        EXPECT_EQ(face.right, 264);
        EXPECT_EQ(face.top, kSize - 73);
        EXPECT_EQ(face.bottom, kSize - 175);

        // The parsers' sign rules are undone on the way out: one pose everywhere.
        if (backend == Backend::AS) {
            first = face;
        } else {
            EXPECT_FLOAT_EQ(face.roll, first.roll);
            EXPECT_FLOAT_EQ(face.yaw, first.yaw);
            EXPECT_FLOAT_EQ(face.pitch, first.pitch);
        }
    }
    // The eye line falls slightly to image-right: a small clockwise roll.
    const float eyeRoll = std::atan2(-(source.pupils[1].y - source.pupils[0].y),
                                     source.pupils[1].x - source.pupils[0].x) * 57.29578f;
    EXPECT_NEAR(first.roll, eyeRoll, 0.01f);
    EXPECT_LT(first.roll, 0.0f);
    // A nearly frontal photo: rough estimates, but small.
    EXPECT_LT(std::fabs(first.yaw), 15.0f);
    EXPECT_LT(std::fabs(first.pitch), 20.0f);
}

TEST_F(FaceRecordTest, InterpolatedPointsLieWhereTheLayoutsPutThem) {
    const LandmarkFile::Face& source = file.faces()[0];
    const float boxW = source.boxRight - source.boxLeft, boxH = source.boxBottom - source.boxTop;
    for (Backend backend : kBackends) {
        SCOPED_TRACE(FaceRecordBuilder::backendName(backend));
        std::vector<Point> p = FaceRecordBuilder::layout(source, backend);
        // Nothing strays off the face: all within the box grown by a quarter.
        for (size_t i = 0; i < p.size(); ++i) {
            EXPECT_GT(p[i].x, source.boxLeft - boxW / 4) << i;
            EXPECT_LT(p[i].x, source.boxRight + boxW / 4) << i;
            EXPECT_GT(p[i].y, source.boxTop - boxH / 4) << i;
            EXPECT_LT(p[i].y, source.boxBottom + boxH / 4) << i;
        }
    }
    // Image y runs down: "below" is a larger y.
    std::vector<Point> st = FaceRecordBuilder::layout(source, Backend::ST);
    EXPECT_FLOAT_EQ(st[16].y, source.points[8].y); // chin kept
    for (int k = 0; k < 16; ++k) EXPECT_EQ(st[2 * k].x, source.points[k].x) << "jaw point " << k;
    // Brow lower edges: the upper edge moved towards the chin by a fifth of
    // the brow-to-pupil distance; compare the inner and outer ends.
    const float leftShift = 0.2f * std::hypot(source.points[19].x - source.pupils[0].x,
                                              source.points[19].y - source.pupils[0].y);
    const float rightShift = 0.2f * std::hypot(source.points[24].x - source.pupils[1].x,
                                               source.points[24].y - source.pupils[1].y);
    auto below = [](Point lower, Point upper) { return std::hypot(lower.x - upper.x, lower.y - upper.y); };
    EXPECT_GT(st[64].y, source.points[21].y); // left lower edge starts at the inner end
    EXPECT_NEAR(below(st[64], source.points[21]), leftShift, 0.01f);
    EXPECT_NEAR(below(st[67], source.points[17]), leftShift, 0.01f);
    EXPECT_GT(st[68].y, source.points[26].y); // right lower edge starts at the outer end
    EXPECT_NEAR(below(st[68], source.points[26]), rightShift, 0.01f);
    EXPECT_NEAR(below(st[71], source.points[22]), rightShift, 0.01f);
    EXPECT_LT(st[72].y, st[73].y); // left eye top above its bottom
    EXPECT_LT(st[75].y, st[76].y);
    EXPECT_LT(st[82].x, st[49].x); // nose wings either side of the nose bottom
    EXPECT_GT(st[83].x, st[49].x);

    std::vector<Point> as = FaceRecordBuilder::layout(source, Backend::AS);
    EXPECT_FLOAT_EQ(as[9].x, source.points[8].x); // chin of the 19-point contour
    EXPECT_LT(as[42].y, as[48].y);                 // left eye top above bottom
    EXPECT_LT(as[54].y, as[60].y);
    EXPECT_GT(as[24].y, source.points[21].y);      // brow lower edges under the upper ones
    EXPECT_GT(as[35].y, source.points[26].y);
    EXPECT_FLOAT_EQ(as[34].x, source.points[26].x); // 6-point right brow keeps its ends
    EXPECT_LT(as[66].x, as[71].x);                 // left wing left of the right one
    // Twelve eye points run round: consecutive points close together.
    for (int i = 39; i < 50; ++i)
        EXPECT_LT(std::hypot(as[i + 1].x - as[i].x, as[i + 1].y - as[i].y), 10.0f) << i;
}

TEST_F(FaceRecordTest, CommittedSampleRecordsMatchTheConverter) {
    for (Backend backend : kBackends) {
        std::string path = std::string(QZ_SOURCE_DIR) + "/samples/faces/astronaut." +
                           FaceRecordBuilder::backendName(backend) + ".rec";
        std::ifstream in(path, std::ios::binary);
        ASSERT_TRUE(in) << path << " is missing: run scripts/make_sample_records";
        std::vector<uint8_t> committed((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        EXPECT_EQ(committed, FaceRecordBuilder::build(file.faces(), backend))
            << path << " is stale: run scripts/make_sample_records";
    }
}

TEST(LandmarkFile, RefusesMalformedFilesWithAReason) {
    std::string points;
    for (int i = 0; i < 68; ++i) points += std::string(i ? "," : "") + "[" + std::to_string(10 + i) + ",20]";
    auto doc = [](const std::string& faces) { return "{\"width\":100,\"height\":100,\"faces\":[" + faces + "]}"; };
    auto face = [&](const std::string& pts, const std::string& extra) {
        return "{\"landmarks68\":[" + pts + "]" + extra + "}";
    };
    const struct {
        std::string text;
        const char* reason;
    } cases[] = {
        {"[1, 2", "not a JSON object"},
        {"{\"height\":100,\"faces\":[]}", "\"width\""},
        {"{\"width\":0,\"height\":100,\"faces\":[]}", "outside 1 to 16384"},
        {"{\"width\":100,\"height\":100}", "\"faces\" array"},
        {doc(face(points.substr(0, points.rfind(",[")), "")), "68 [x, y] points"},
        {doc(face(points.substr(0, points.rfind(",[")) + ",[\"a\",1]", "")), "landmark 67"},
        {doc(face(points.substr(0, points.rfind(",[")) + ",[5000,1]", "")), "far outside"},
        {doc(face(points, ",\"pupils\":[[1,2]]")), "\"pupils\""},
        {doc(face(points, ",\"box\":{\"x\":1,\"y\":1,\"width\":-3,\"height\":4}")), "positive"},
        {doc(face(points, "") + "," + face(points, "") + "," + face(points, "") + "," + face(points, "") + "," +
             face(points, "")),
         "at most 4"},
    };
    for (const auto& c : cases) {
        LogCapture log;
        LandmarkFile file;
        EXPECT_FALSE(file.parse(c.text)) << c.reason;
        EXPECT_NE(file.error().find(c.reason), std::string::npos) << file.error();
        EXPECT_EQ(log.count(c.reason, ZU_LOG_ERROR), 1) << c.reason;
        EXPECT_TRUE(file.faces().empty());
    }

    // The same points are fine; missing pupils become the eye centres and a
    // missing box the box round the points.
    LandmarkFile good;
    ASSERT_TRUE(good.parse(doc(face(points, "")))) << good.error();
    const LandmarkFile::Face& f = good.faces()[0];
    EXPECT_FLOAT_EQ(f.pupils[0].x, (46 + 47 + 48 + 49 + 50 + 51) / 6.0f);
    EXPECT_FLOAT_EQ(f.boxLeft, 10.0f);
    EXPECT_FLOAT_EQ(f.boxRight, 77.0f);

    TempDir dir;
    LandmarkFile missing;
    EXPECT_FALSE(missing.load(dir.path() + "none.json"));
    EXPECT_NE(missing.error().find("none.json: cannot be read"), std::string::npos);
}

TEST(HostOptions, FaceOptionsAreCheckedTogether) {
    auto parse = [](std::vector<std::string> args) {
        std::vector<char*> argv;
        for (std::string& a : args) argv.push_back(&a[0]);
        HostOptions options;
        return options.parse(static_cast<int>(argv.size()), argv.data());
    };
    const std::string photo = QZ_SOURCE_DIR "/samples/photos/astronaut.png";
    const std::string assets = QZ_SOURCE_DIR "/assets";
    EXPECT_EQ(parse({"qzhost", "--assets", assets, "--detect", "st", photo}), HostOptions::Outcome::Error);
    EXPECT_EQ(parse({"qzhost", "--assets", assets, "--show-points", photo}), HostOptions::Outcome::Error);
    EXPECT_EQ(parse({"qzhost", "--assets", assets, "--landmarks", kSample, "--detect", "xx", photo}),
              HostOptions::Outcome::Error);
    EXPECT_EQ(parse({"qzhost", "--assets", assets, "--landmarks", kSample, "--detect", "self", "--show-points",
                     photo}),
              HostOptions::Outcome::Run);
}

// A clip's landmarks, one file per frame as the tracker writes them: each
// frame gets the record of its own file, a frame without one a record
// without faces; a single file serves every frame.
TEST(FaceRecordSource, FramesTakeTheirOwnLandmarkFiles) {
    EXPECT_EQ(FaceRecordSource::landmarkNameFor("clip/frame_0007.png"), "frame_0007.landmarks.json");
    EXPECT_EQ(FaceRecordSource::landmarkNameFor("still"), "still.landmarks.json");

    const std::string sample = std::string(QZ_SOURCE_DIR) + "/samples/faces/astronaut.landmarks.json";
    std::ifstream in(sample);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::ifstream rec(std::string(QZ_SOURCE_DIR) + "/samples/faces/astronaut.fp.rec", std::ios::binary);
    const std::vector<uint8_t> committed((std::istreambuf_iterator<char>(rec)), std::istreambuf_iterator<char>());
    TempDir dir;
    dir.write("frame_0001.landmarks.json", text);
    dir.write("frame_0003.landmarks.json", "{\"width\": 512, \"height\": 512, \"faces\": 7}");

    FaceRecordSource clip;
    ASSERT_TRUE(clip.open(dir.path(), Backend::FP, 512, 512));
    EXPECT_TRUE(clip.isPerFrame());
    std::vector<uint8_t> record;
    ASSERT_TRUE(clip.recordFor("frames/frame_0001.png", record));
    EXPECT_EQ(record, committed);
    ASSERT_TRUE(clip.recordFor("frames/frame_0002.png", record));
    EXPECT_EQ(record, (std::vector<uint8_t>{0, 0, 0, 0})) << "no file: a record without faces";
    EXPECT_FALSE(clip.recordFor("frames/frame_0003.png", record)) << "a broken file stops the run";

    FaceRecordSource still;
    ASSERT_TRUE(still.open(sample, Backend::FP, 512, 512));
    EXPECT_FALSE(still.isPerFrame());
    ASSERT_TRUE(still.recordFor("anything.png", record));
    EXPECT_EQ(record, committed);
    FaceRecordSource wrongSize;
    EXPECT_FALSE(wrongSize.open(sample, Backend::FP, 640, 480));
}
