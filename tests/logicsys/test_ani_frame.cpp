// Flip-book stickers: the time line's frame-by-frame timing and the events
// it sends, triggers between animations, the "anim" item's keys, and the
// quad drawn on a tracked face.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "event/ZuAnimateEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuTriggerLists.h"
#include "logicsys/Animate2D/ZuAniFrameNode.h"
#include "logicsys/Animate2D/ZuBMFontConfiguration.h"
#include "logicsys/Animate2D/ZuBMFontNode.h"
#include "logicsys/Animate2D/ZuBitFontNode.h"
#include "logicsys/Animate2D/ZuAnimateFrame.h"
#include "logicsys/Animate2D/ZuKeyFrame.h"
#include "logicsys/Animate2D/ZuScreenAnimateNode.h"
#include "logicsys/Animate2D/ZuSpriteNode.h"
#include "logicsys/Animate2D/ZuTexAniNode.h"
#include "logicsys/Animate2D/ZuTimeLine.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "parse/ZuParse2DAni.h"
#include "parse/ZuParseAniFrame.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "person/ZuPersonTracker.h"
#include "render/fbo/ZuFboObject.h"
#include "render/texture/ZuPngWriter.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTextureSet.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"
#include "support/WireRecord.h"

#include <rapidjson/document.h>

#include <cmath>
#include <map>
#include <unistd.h>
#include <string>
#include <vector>

namespace {

const int kSize = 64;

// Collects the names of the animation events that reach it, per pass.
class AniEventLog : public ZuEventProc {
public:
    explicit AniEventLog(ZuAppMain* app) : ZuEventProc(app) {}
    bool procEvent(ZuEvent* event) override {
        if (event && event->type == ZU_EVENT_ANIMATE) {
            seen.push_back(std::string(event->name.c_str()));
            persons.push_back(static_cast<ZuAnimateEvent*>(event)->personID);
        }
        return true;
    }
    std::vector<std::string> take() {
        std::vector<std::string> out;
        out.swap(seen);
        return out;
    }
    std::vector<std::string> seen;
    std::vector<int> persons;
};

using Names = std::vector<std::string>;

// FP records of this scene: points not named sit at (32, 60).
std::vector<uint8_t> fpRecord(int faces, const LandmarkMap& points) {
    return fpFaceRecord(points, {32.0f, 60.0f}, {0, 0, kSize, kSize}, faces);
}

class AniFrameTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override { return {dir.path()}; }
    void SetUp() override {
        EngineTest::SetUp();
        ZuGlobalMgr* managers = app->getGlobalMgr();
        scene = createSquareScene("s", kSize);
        ASSERT_NE(scene, nullptr);
        events = managers->getEventMgr();
        log = new AniEventLog(app);
        events->registProcer(log);
        writePng("red.png", 8, 8, {255, 0, 0, 255});
        writePng("green.png", 8, 8, {0, 255, 0, 255});
        writePng("blue.png", 8, 16, {0, 0, 255, 255});
    }
    void TearDown() override {
        if (app && log) app->getGlobalMgr()->getEventMgr()->unregistProcer(log);
        qzSafeRelease(log);
        EngineTest::TearDown();
    }
    void writePng(const std::string& name, int w, int h, std::vector<uint8_t> rgba) {
        std::vector<uint8_t> pixels;
        for (int i = 0; i < w * h; ++i) pixels.insert(pixels.end(), rgba.begin(), rgba.end());
        ZuPngWriter writer(app);
        ASSERT_EQ(writer.write((dir.path() + name).c_str(), w, h, pixels.data()), 1);
    }
    // A node outside the scene, stepped by hand: frames are the given files.
    ZuAniFrameNode* makeNode(const Names& files, float fps, bool loop, int personID = 0) {
        auto* node = dynamic_cast<ZuAniFrameNode*>(
            app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode("ZuAniFrameNode", "s", "ani"));
        EXPECT_NE(node, nullptr);
        ZuAnimateFrame* animate = new ZuAnimateFrame(app);
        animate->setsceneName("s");
        animate->setaniName("ani");
        ZuTimeLine* line = new ZuTimeLine();
        line->zuinit(fps);
        for (size_t i = 0; i < files.size(); ++i) {
            ZuKeyFrame* key = new ZuKeyFrame(app);
            key->setframeID(static_cast<unsigned>(i));
            key->initTexture((dir.path() + files[i]).c_str());
            line->pushFrame(key);
        }
        animate->setM_TimeLine(line);
        node->setAinFrame(animate);
        animate->release();
        node->setloop(loop);
        node->setpersonID(personID);
        return node;  // the node manager owns it
    }
    // One tick of ms on the node, then the animation events it caused.
    Names tick(ZuAniFrameNode* node, float ms) {
        node->update(ms);
        events->update(0.0f);
        return log->take();
    }
    int frameID(ZuAniFrameNode* node) {
        ZuKeyFrame* key = node->getAniFrame()->getTimeLine()->getCurrent();
        return key ? static_cast<int>(key->getframeID()) : -1;
    }
    // The scene picture, bottom row first.
    std::vector<uint8_t> scenePixels() {
        glBindFramebuffer(GL_FRAMEBUFFER, scene->getFbo()->getFboID());
        std::vector<uint8_t> pixels = readPixels(0, 0, kSize, kSize);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }
    // Bounding box of the pure-red pixels: x0, y0, x1, y1 (inclusive), or all -1.
    static std::vector<int> redBox(const std::vector<uint8_t>& pixels) {
        std::vector<int> box = {kSize, kSize, -1, -1};
        for (int y = 0; y < kSize; ++y)
            for (int x = 0; x < kSize; ++x) {
                const uint8_t* p = &pixels[(static_cast<size_t>(y) * kSize + x) * 4];
                if (p[0] > 200 && p[1] < 50 && p[2] < 50) {
                    box[0] = std::min(box[0], x);
                    box[1] = std::min(box[1], y);
                    box[2] = std::max(box[2], x);
                    box[3] = std::max(box[3], y);
                }
            }
        if (box[2] < 0) box = {-1, -1, -1, -1};
        return box;
    }

    TempDir dir;
    ZuScene* scene = nullptr;
    ZuEventMgr* events = nullptr;
    AniEventLog* log = nullptr;
};

} // namespace

TEST_F(AniFrameTest, OneLoopingImageCompletesAndResetsOnEveryTickFromTheSecond) {
    ZuAniFrameNode* node = makeNode({"red.png"}, 25.0f, true);
    node->play();
    events->update(0.0f);
    EXPECT_EQ(log->take(), (Names{"aniReset", "aniPlay"}));
    EXPECT_EQ(tick(node, 40), Names{});
    for (int i = 0; i < 3; ++i) EXPECT_EQ(tick(node, 40), (Names{"aniComplete", "aniReset"})) << "tick " << i + 2;
    EXPECT_EQ(node->getPlayState(), ZuAniFrameNode::STATE_PLAYING);
    EXPECT_TRUE(node->isVisible());
}

TEST_F(AniFrameTest, ALateTickMovesOneFrameAndTheLastFrameStaysTwoTicks) {
    // 25 fps at 100 ms ticks: one frame a tick, none skipped.
    ZuAniFrameNode* node = makeNode({"red.png", "green.png", "blue.png"}, 25.0f, false);
    node->play();
    events->update(0.0f);
    log->take();
    std::vector<int> ids;
    std::vector<Names> sent;
    for (int i = 0; i < 5; ++i) {
        sent.push_back(tick(node, 100));
        ids.push_back(frameID(node));
    }
    EXPECT_EQ(ids, (std::vector<int>{1, 2, 2, 2, 2}));
    EXPECT_EQ(sent[0], Names{});
    EXPECT_EQ(sent[1], Names{});
    EXPECT_EQ(sent[2], Names{});  // the tick that raises the end flag
    EXPECT_EQ(sent[3], (Names{"aniComplete", "aniStop"}));
    EXPECT_EQ(node->getPlayState(), ZuAniFrameNode::STATE_STOPPED);
    EXPECT_FALSE(node->isVisible());
    EXPECT_EQ(sent[4], Names{});  // a stopped node no longer steps
    // The size of the frame shown last (8 x 16) is what the node reports.
    EXPECT_EQ(node->getDisplayWidth(), 8.0f);
    EXPECT_EQ(node->getDisplayHeight(), 16.0f);
}

TEST_F(AniFrameTest, FpsZeroKeepsTheFirstFrameAndAnEmptyTimeLineStopsWithoutCompleting) {
    ZuAniFrameNode* still = makeNode({"red.png", "green.png"}, 0.0f, false);
    still->play();
    for (int i = 0; i < 50; ++i) tick(still, 1000);
    EXPECT_EQ(frameID(still), 0);
    EXPECT_EQ(still->getPlayState(), ZuAniFrameNode::STATE_PLAYING);

    ZuAniFrameNode* empty = makeNode({}, 25.0f, false);
    empty->play();
    events->update(0.0f);
    log->take();
    EXPECT_EQ(tick(empty, 40), Names{});
    EXPECT_EQ(tick(empty, 40), Names{"aniStop"});
    EXPECT_EQ(empty->getPlayState(), ZuAniFrameNode::STATE_STOPPED);
}

TEST_F(AniFrameTest, PauseFreezesTheFrameAndStopHides) {
    ZuAniFrameNode* node = makeNode({"red.png", "green.png", "blue.png"}, 10.0f, true);
    node->play();
    tick(node, 100);
    node->pause();
    EXPECT_EQ(tick(node, 100), Names{"aniPause"});
    tick(node, 100);
    EXPECT_EQ(frameID(node), 1);
    EXPECT_TRUE(node->isVisible());
    node->stop();
    events->update(0.0f);
    EXPECT_EQ(log->take(), Names{"aniStop"});
    EXPECT_FALSE(node->isVisible());
}

TEST_F(AniFrameTest, ADependencyStartsOnAnAnimationEventOnlyForPersonZero) {
    ZuAniFrameNode* first = makeNode({"red.png"}, 25.0f, false);
    ZuAniFrameNode* same = makeNode({"red.png"}, 25.0f, false, 0);
    ZuAniFrameNode* other = makeNode({"red.png"}, 25.0f, false, 1);
    ZuAniFrameNode* stopped = makeNode({"red.png"}, 25.0f, true, 0);
    same->pushEventToStartList(ZuTriggerLists::makeTriggerPattern("dependency", "ani", "aniComplete", "s", 0, 0));
    other->pushEventToStartList(ZuTriggerLists::makeTriggerPattern("dependency", "ani", "aniComplete", "s", 1, 0));
    stopped->pushEventToStopList(ZuTriggerLists::makeTriggerPattern("dependency", "ani", "aniComplete", "s", 0, 0));
    stopped->play();
    first->play();
    events->update(0.0f);
    log->take();
    tick(first, 40);
    tick(first, 40);  // aniComplete and aniStop, carrying person -1
    EXPECT_EQ(log->persons.back(), -1);
    EXPECT_EQ(same->getPlayState(), ZuAniFrameNode::STATE_PLAYING);
    EXPECT_EQ(other->getPlayState(), ZuAniFrameNode::STATE_STOPPED);
    // The animation name of a dependency takes no part: "same" playing now
    // sends an "aniPlay" that any "aniPlay" dependency in the scene would take.
    EXPECT_EQ(stopped->getPlayState(), ZuAniFrameNode::STATE_STOPPED);
}

TEST_F(AniFrameTest, TheAnimItemReadsItsKeysAndBuildsNodesPerPerson) {
    rapidjson::Document item;
    item.Parse(R"({"id": "12", "type": "anim", "subType": "face", "images": ["red.png", 4],
        "index": "460", "s": ["1.2", 3], "h": [0, 0], "r": "1", "fps": 30, "loop": "1",
        "triggeredBy": [{"category": "mouthOpen"}], "terminatedBy": [{"category": "mouthClose"}]})");
    LogCapture capture;
    ZuParseData* data = ZuParse2DAni::parse2DAni(app, item, 3, "s", dir.path().c_str());
    ASSERT_NE(data, nullptr);
    auto* frames = dynamic_cast<ZuParseAniFrame*>(data);
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(frames->bindIndex, 46);
    EXPECT_FLOAT_EQ(frames->scaleX, 1.2f);
    EXPECT_FALSE(frames->offsetSet);
    EXPECT_EQ(frames->fps, 25.0f);  // a number where text is expected is ignored
    EXPECT_GE(capture.count("\"fps\" is not a string", ZU_LOG_WARN), 1);
    EXPECT_GE(capture.count("an entry of \"images\" is not a string", ZU_LOG_WARN), 1);

    std::string path = dir.path();
    data->generate(3, "s", &path[0]);
    ASSERT_EQ(data->getNodes().size(), 4u);  // no "mode", no "personid": persons 1 to 4
    auto* node = dynamic_cast<ZuAniFrameNode*>(data->getNodes()[2]);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->getpersonID(), 3);
    EXPECT_EQ(node->getposmode(), ANIPOS_FACE);
    EXPECT_TRUE(node->getcfgrot());
    EXPECT_TRUE(node->getloop());
    EXPECT_EQ(node->getcfgoffx(), 0.0f);
    EXPECT_EQ(node->getAniFrame()->getTimeLine()->getFrameCount(), 1u);
    EXPECT_EQ(node->getAniFrame()->getid(), 12);
    EXPECT_EQ(node->getTriggers().startCount(), 1u);
    EXPECT_EQ(node->getTriggers().stopCount(), 1u);
    EXPECT_EQ(node->getPlayState(), ZuAniFrameNode::STATE_STOPPED);
    data->release();

    // A screen item with a mode: one node, started by its package's readiness.
    item.Parse(R"({"id": "bg", "subType": "screen", "mode": "fullscreen", "images": ["red.png"],
                   "playIndex": "1", "plist": ["missing"]})");
    data = ZuParse2DAni::parse2DAni(app, item, 4, "s", dir.path().c_str());
    ASSERT_NE(data, nullptr);
    data->generate(4, "s", &path[0]);
    ASSERT_EQ(data->getNodes().size(), 1u);
    node = dynamic_cast<ZuAniFrameNode*>(data->getNodes()[0]);
    EXPECT_EQ(node->getpersonID(), 0);
    EXPECT_EQ(node->getposmode(), ANIPOS_FULLSCREEN);
    EXPECT_TRUE(node->getisScreen());
    EXPECT_EQ(node->getTriggers().startCount(), 1u);
    EXPECT_EQ(node->getAniFrame()->getTimeLine()->getFrameCount(), 0u);  // "playIndex" empties it
    EXPECT_EQ(node->getAniFrame()->getTexturePListCount(), 0u);          // the missing atlas is skipped
    EXPECT_TRUE(app->getGlobalMgr()->getConfig()->screenAnimation);
    data->release();
}

TEST_F(AniFrameTest, AFaceStickerSitsOnItsLandmarkScalesWithTheEyesAndHidesWithoutAFace) {
    ZuAniFrameNode* node = makeNode({"red.png"}, 25.0f, true, 1);
    node->setposmode(ANIPOS_FACE);
    node->setcfgsx(1.0f);
    ZuDetectBase* detect = app->getGlobalMgr()->getDetectMgr()->getDetect();
    ASSERT_NE(detect, nullptr);
    node->setcfgbindindex(46);
    const int bound = detect->transformIndex(46);
    scene->addChild(node);
    node->play();

    ZuPersonSys* persons = app->getGlobalMgr()->getPersonSys();
    for (float eyes : {16.0f, 32.0f}) {
        std::map<int, std::pair<float, float>> points = {{74, {32.0f - eyes / 2, 30.0f}},
                                                        {77, {32.0f + eyes / 2, 30.0f}},
                                                        {bound, {30.0f, 40.0f}}};
        const std::vector<uint8_t> record = fpRecord(1, points);
        app->getAppInter()->setDetectData("s", record.data(), static_cast<int>(record.size()));
        frame();
        frame();
        ZuPerson* person = persons->getPerson("s", 1);
        ASSERT_NE(person, nullptr);
        ASSERT_TRUE(person->getExist());
        const float ax = person->getFaceDataX(bound), ay = person->getFaceDataY(bound);
        const float size = person->getTracker()->eyeDistance;
        EXPECT_NEAR(size, eyes, 0.5f);
        const std::vector<int> box = redBox(scenePixels());
        ASSERT_GE(box[0], 0) << "eyes " << eyes;
        EXPECT_NEAR((box[0] + box[2] + 1) / 2.0f, ax, 2.0f);
        EXPECT_NEAR((box[1] + box[3] + 1) / 2.0f, ay, 2.0f);
        EXPECT_NEAR(box[2] - box[0] + 1, size, 1.0f);
        EXPECT_NEAR(box[3] - box[1] + 1, size, 1.0f);
    }

    const std::vector<uint8_t> none = fpRecord(0, {});
    app->getAppInter()->setDetectData("s", none.data(), static_cast<int>(none.size()));
    frame();
    frame();
    EXPECT_EQ(redBox(scenePixels())[0], -1);
}

TEST_F(AniFrameTest, AFaceStickerTurnsWithTheEyeLine) {
    writePng("tall.png", 8, 16, {255, 0, 0, 255});
    ZuAniFrameNode* node = makeNode({"tall.png"}, 25.0f, true, 1);
    node->setposmode(ANIPOS_FACE);
    node->setcfgsx(1.0f);
    scene->addChild(node);
    node->play();
    // Eye line tilted by about 31 degrees.
    const int bound = app->getGlobalMgr()->getDetectMgr()->getDetect()->transformIndex(0);
    const std::vector<uint8_t> record =
        fpRecord(1, {{74, {22.0f, 34.0f}}, {77, {42.0f, 22.0f}}, {bound, {32.0f, 32.0f}}});
    app->getAppInter()->setDetectData("s", record.data(), static_cast<int>(record.size()));
    frame();
    frame();
    const std::vector<uint8_t> pixels = scenePixels();
    // The long side of the sticker follows the face's up axis: its angle from
    // the vertical equals the eye line's angle from the horizontal.
    double sx = 0, sy = 0, n = 0;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x)
            if (pixels[(y * kSize + x) * 4] > 200 && pixels[(y * kSize + x) * 4 + 1] < 50) sx += x, sy += y, n++;
    ASSERT_GT(n, 20);
    double cxx = 0, cyy = 0, cxy = 0;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x)
            if (pixels[(y * kSize + x) * 4] > 200 && pixels[(y * kSize + x) * 4 + 1] < 50) {
                const double dx = x - sx / n, dy = y - sy / n;
                cxx += dx * dx, cyy += dy * dy, cxy += dx * dy;
            }
    const double longAxis = 0.5 * std::atan2(2 * cxy, cxx - cyy) * 57.29578; // from +x, y up
    const float eyeLine = app->getGlobalMgr()->getPersonSys()->getPerson("s", 1)->getTracker()->eyeLineAngle;
    // An axis has no head: compare angles modulo half a turn.
    const double off = std::fmod(longAxis - 90.0 - eyeLine + 720.0, 180.0);
    EXPECT_NEAR(std::min(off, 180.0 - off), 0.0, 4.0) << "axis " << longAxis << ", eye line " << eyeLine;
}

// A face record with a mouth 20 pixels wide, its lips apart by gap.
std::vector<uint8_t> mouthRecord(float gap) {
    return fpRecord(1, {{74, {22.0f, 30.0f}}, {77, {42.0f, 30.0f}}, {84, {22.0f, 48.0f}}, {90, {42.0f, 48.0f}},
                        {93, {32.0f, 50.0f + gap}}, {87, {32.0f, 46.0f}}, {98, {32.0f, 47.0f}},
                        {102, {32.0f, 47.0f + gap}}});
}

TEST_F(AniFrameTest, AnOpenMouthStartsThePackagesStickerInTheFrameItsEventArrives) {
    dir.write("pkg/config.json", R"({"param": [{"id": "puff", "type": "anim", "subType": "face",
        "images": ["red.png"], "s": ["1"], "loop": "1",
        "triggeredBy": [{"category": "mouthopen"}], "terminatedBy": [{"category": "mouthclose"}]}]})");
    writePng("pkg/red.png", 8, 8, {255, 0, 0, 255});
    ZuAppNative* host = app->getAppInter();
    host->loadEffect("s", "pkg", 9, 0);
    ZuNodeMgr* nodes = app->getGlobalMgr()->getNodeMgr();
    ZuAniFrameNode* node = nullptr;
    for (int i = 0; i < 200 && !node; ++i) {
        frame();
        node = dynamic_cast<ZuAniFrameNode*>(nodes->getNode("s_puff_1_9"));
    }
    ASSERT_NE(node, nullptr);

    // Shut, then open: the frame that turns the node on also draws it.
    auto run = [&](float gap, int wantState) {
        const std::vector<uint8_t> record = mouthRecord(gap);
        for (int i = 0; i < 40; ++i) {
            host->setDetectData("s", record.data(), static_cast<int>(record.size()));
            frame();
            usleep(5000);  // expressions are judged over time, not per frame
            const bool red = redBox(scenePixels())[0] >= 0;
            if (node->getPlayState() == wantState) return std::make_pair(i, red);
            EXPECT_EQ(red, wantState != ZuAniFrameNode::STATE_PLAYING) << "frame " << i;
        }
        return std::make_pair(-1, false);
    };
    EXPECT_EQ(node->getPlayState(), ZuAniFrameNode::STATE_STOPPED);
    std::pair<int, bool> opened = run(16.0f, ZuAniFrameNode::STATE_PLAYING);
    ASSERT_GE(opened.first, 0);
    EXPECT_TRUE(opened.second);
    std::pair<int, bool> shut = run(0.0f, ZuAniFrameNode::STATE_STOPPED);
    ASSERT_GE(shut.first, 0);
    EXPECT_FALSE(shut.second);
}

TEST_F(AniFrameTest, AnAtlasFrameDrawsItsTrimmedRegionAtItsPlaceInTheLogicalFrame) {
    // Page 16 x 8: red on the left half, green on the right. Both regions
    // are quarters of a 16 x 16 logical frame: red its top right, green its
    // bottom left.
    dir.write("atlas.json", R"({"frames": [
        {"filename": "a.png", "trimmed": true, "frame": {"x": 0, "y": 0, "w": 8, "h": 8},
         "spriteSourceSize": {"x": 8, "y": 0, "w": 8, "h": 8}, "sourceSize": {"w": 16, "h": 16}},
        {"filename": "b.png", "trimmed": true, "frame": {"x": 8, "y": 0, "w": 8, "h": 8},
         "spriteSourceSize": {"x": 0, "y": 8, "w": 8, "h": 8}, "sourceSize": {"w": 16, "h": 16}}],
        "meta": {"image": "page.png"}})");
    std::vector<uint8_t> page;
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 16; ++x) {
            const std::vector<uint8_t> px = x < 8 ? std::vector<uint8_t>{255, 0, 0, 255} : std::vector<uint8_t>{0, 255, 0, 255};
            page.insert(page.end(), px.begin(), px.end());
        }
    ZuPngWriter writer(app);
    ASSERT_EQ(writer.write((dir.path() + "page.png").c_str(), 16, 8, page.data()), 1);
    // The atlas goes into the texture cache before the frames look their regions up.
    ZuTextureSet* atlas =
        app->getGlobalMgr()->getTexMgr()->loadImgPList((dir.path() + "atlas.json").c_str(), dir.path().c_str());
    ASSERT_NE(atlas, nullptr);

    const int bound = app->getGlobalMgr()->getDetectMgr()->getDetect()->transformIndex(0);
    const std::vector<uint8_t> record = fpRecord(1, {{74, {16.0f, 20.0f}}, {77, {48.0f, 20.0f}}, {bound, {32.0f, 32.0f}}});
    // Both built at once: the cache lets regions nobody holds go after two ticks.
    std::map<std::string, ZuAniFrameNode*> made;
    for (const char* region : {"a.png", "b.png"}) {
        ZuAniFrameNode* node = makeNode({region}, 25.0f, true, 1);
        node->getAniFrame()->addTexturePList(atlas);
        node->setposmode(ANIPOS_FACE);
        node->setcfgsx(1.0f);  // 32 pixels across: twice the logical frame
        scene->addChild(node);
        made[region] = node;
    }
    for (const char* region : {"a.png", "b.png"}) {
        ZuAniFrameNode* node = made[region];
        node->play();
        for (int i = 0; i < 200 && !node->isReady(); ++i) {
            frame();
            usleep(2000);  // the page decodes on the load thread
        }
        ASSERT_TRUE(node->isReady());
        app->getAppInter()->setDetectData("s", record.data(), static_cast<int>(record.size()));
        frame();
        frame();
        const std::vector<uint8_t> pixels = scenePixels();
        const std::vector<int> red = redBox(pixels);
        int greenX0 = kSize, greenY0 = kSize, greenX1 = -1, greenY1 = -1;
        for (int y = 0; y < kSize; ++y)
            for (int x = 0; x < kSize; ++x) {
                const uint8_t* p = &pixels[(static_cast<size_t>(y) * kSize + x) * 4];
                if (p[1] > 200 && p[0] < 50) {
                    greenX0 = std::min(greenX0, x), greenY0 = std::min(greenY0, y);
                    greenX1 = std::max(greenX1, x), greenY1 = std::max(greenY1, y);
                }
            }
        if (std::string(region) == "a.png") {
            // Above right of the anchor (y up); an edge column may mix with
            // its neighbour on the page.
            const std::vector<int> want = {32, 32, 47, 47};
            for (int i = 0; i < 4; ++i) EXPECT_NEAR(red[i], want[i], 1) << i;
            EXPECT_EQ(greenX1, -1);
        } else {
            EXPECT_EQ(red[0], -1);
            const std::vector<int> got = {greenX0, greenY0, greenX1, greenY1}, want = {16, 16, 31, 31};
            for (int i = 0; i < 4; ++i) EXPECT_NEAR(got[i], want[i], 1) << i;
        }
        node->stop();
    }
}

TEST_F(AniFrameTest, FullScreenCoversTheFrameAndAMaskNeverDraws) {
    writePng("tall_red.png", 9, 16, {255, 0, 0, 255});
    auto count = [&]() {
        const std::vector<uint8_t> pixels = scenePixels();
        int red = 0;
        for (int i = 0; i < kSize * kSize; ++i)
            if (pixels[i * 4] > 200 && pixels[i * 4 + 1] < 50) red++;
        return red;
    };
    // Full screen: the 9:16 picture covers the 9:16 design area, which the
    // adapt scale lays over the whole 64 x 64 frame.
    ZuAniFrameNode* full = makeNode({"tall_red.png"}, 25.0f, true);
    full->setposmode(ANIPOS_FULLSCREEN);
    scene->addChild(full);
    full->play();
    frame();
    EXPECT_EQ(count(), kSize * kSize);
    full->stop();
    frame();
    EXPECT_EQ(count(), 0);

    // A mask plays, but leaves drawing to whoever uses it, face or not.
    ZuAniFrameNode* mask = makeNode({"tall_red.png"}, 25.0f, true, 1);
    mask->setposmode(ANIPOS_MASK);
    mask->setisFaceMask(true);
    scene->addChild(mask);
    mask->play();
    const std::vector<uint8_t> record = mouthRecord(0.0f);
    app->getAppInter()->setDetectData("s", record.data(), static_cast<int>(record.size()));
    frame();
    frame();
    EXPECT_EQ(mask->getPlayState(), ZuAniFrameNode::STATE_PLAYING);
    EXPECT_EQ(count(), 0);
}

TEST_F(AniFrameTest, BrokenAtlasesAndMissingImagesAreLoggedAndDrawNothing) {
    dir.write("bad/broken.json", "{\"frames\": [ {\"filename\": ");
    dir.write("bad/nopage.json", R"({"frames": [{"filename": "p.png", "frame": {"x": 0, "y": 0, "w": 4, "h": 4},
        "sourceSize": {"w": 4, "h": 4}}], "meta": {"image": "absent.png"}})");
    dir.write("bad/config.json", "{}");
    rapidjson::Document item;
    item.Parse(R"({"id": "bad", "subType": "screen", "mode": "centerorigin", "fps": "25", "loop": "1",
        "plist": ["broken", "nopage", "nothere"], "images": ["p.png", "gone.png"]})");
    LogCapture capture;
    ZuParseData* data = ZuParse2DAni::parse2DAni(app, item, 6, "s", (dir.path() + "bad/").c_str());
    ASSERT_NE(data, nullptr);
    std::string path = dir.path() + "bad/";
    data->generate(6, "s", &path[0]);
    ASSERT_EQ(data->getNodes().size(), 1u);
    auto* node = dynamic_cast<ZuAniFrameNode*>(data->getNodes()[0]);
    scene->addChild(node);
    node->play();
    for (int i = 0; i < 20; ++i) {
        frame();
        usleep(2000);
    }
    EXPECT_EQ(capture.count("not valid JSON", ZU_LOG_WARN), 1);
    EXPECT_EQ(capture.count("atlas '" + path + "nothere.json': file not found", ZU_LOG_WARN), 1);
    EXPECT_GE(capture.count("gone.png", ZU_LOG_WARN), 1);
    EXPECT_EQ(node->getAniFrame()->getTexturePListCount(), 1u);  // only the page that was described
    EXPECT_EQ(node->getPlayState(), ZuAniFrameNode::STATE_PLAYING);
    const std::vector<uint8_t> pixels = scenePixels();
    int lit = 0;
    for (size_t i = 0; i < pixels.size(); i += 4) lit += pixels[i + 3] != 0 && (pixels[i] | pixels[i + 1] | pixels[i + 2]) != 0;
    EXPECT_EQ(lit, 0);
    data->release();
}

TEST_F(AniFrameTest, ASpriteDrawsItsPictureAtItsSizeAroundThePosition) {
    auto* sprite = dynamic_cast<ZuSpriteNode*>(
        app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode("ZuSpriteNode", "s", "sprite"));
    ASSERT_NE(sprite, nullptr);
    scene->addChild(sprite);
    frame();
    EXPECT_EQ(redBox(scenePixels())[0], -1);  // no texture, nothing drawn
    sprite->setSpriteTexture(app->getGlobalMgr()->getTexMgr()->getTextureSync((dir.path() + "red.png").c_str()));
    sprite->setSpriteSize(20.0f, 10.0f);
    sprite->setPositionX(20.0f, 40.0f, 0.0f);
    frame();
    EXPECT_EQ(redBox(scenePixels()), (std::vector<int>{10, 35, 29, 44}));
}

TEST_F(AniFrameTest, AScrollingTextureKeepsItsSizeInTheCornerAndWrapsAsItMoves) {
    app->getGlobalMgr()->getConfig()->setDesignSize(kSize, kSize);
    std::vector<uint8_t> halves;
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x) {
            const uint8_t px[4] = {static_cast<uint8_t>(x < 16 ? 255 : 0), static_cast<uint8_t>(x < 16 ? 0 : 255), 0, 255};
            halves.insert(halves.end(), px, px + 4);
        }
    ZuPngWriter writer(app);
    ASSERT_EQ(writer.write((dir.path() + "halves.png").c_str(), 32, 32, halves.data()), 1);
    auto* node = dynamic_cast<ZuTexAniNode*>(
        app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode("ZuTexAniNode", "s", "scroll"));
    ASSERT_NE(node, nullptr);
    node->setTexture(app->getGlobalMgr()->getTexMgr()->getTextureSync((dir.path() + "halves.png").c_str()));
    node->setSpeed(16.0f);  // half the picture a second
    // Frames of a frozen clock: only the hand-made second below scrolls,
    // however long a loaded machine takes between frames.
    app->setClock([] { return ZuAppMain::WallTime{}; });
    scene->addChild(node);
    frame();
    auto at = [](const std::vector<uint8_t>& pixels, int x, int y) {
        const uint8_t* p = &pixels[(static_cast<size_t>(y) * kSize + x) * 4];
        return p[0] > 200 ? 'r' : p[1] > 200 ? 'g' : '-';
    };
    std::vector<uint8_t> pixels = scenePixels();
    EXPECT_EQ(at(pixels, 4, 16), 'r');
    EXPECT_EQ(at(pixels, 24, 16), 'g');
    EXPECT_EQ(at(pixels, 40, 16), '-');  // a 32-pixel picture on a 64-pixel design
    EXPECT_EQ(at(pixels, 4, 40), '-');
    node->update(1000.0f);
    frame();
    pixels = scenePixels();
    EXPECT_EQ(at(pixels, 4, 16), 'g');
    EXPECT_EQ(at(pixels, 24, 16), 'r');
}

TEST_F(AniFrameTest, TheScreenGridCoversClipSpaceWithTextureCoordinatesToMatch) {
    auto* grid = dynamic_cast<ZuScreenAnimateNode*>(
        app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode("ZuScreenAnimateNode", "s", "grid"));
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->getIndexCount(), 32 * 32 * 6);
    const qz::array<float>& xy = grid->getPositions();
    const qz::array<float>& uv = grid->getTexcoords();
    ASSERT_EQ(xy.size(), static_cast<uint32_t>(2 * grid->getIndexCount()));
    float low = 1, high = -1;
    for (uint32_t i = 0; i < xy.size(); ++i) {
        low = std::min(low, xy[i]), high = std::max(high, xy[i]);
        EXPECT_FLOAT_EQ(uv[i], (xy[i] + 1.0f) * 0.5f);
    }
    EXPECT_EQ(low, -1.0f);
    EXPECT_EQ(high, 1.0f);
}

TEST_F(AniFrameTest, ABitmapFontFileIsReadAndItsCutLinesAreLogged) {
    dir.write("font/score.fnt",
              "info face=\"Score\" size=32 bold=0 padding=1,2,3,4 spacing=1,1\n"
              "common lineHeight=40 base=30 scaleW=256 scaleH=256 pages=1\n"
              "page id=0 file=\"score.png\"\n"
              "chars count=3\n"
              "char id=48 x=2 y=4 width=20 height=30 xoffset=1 yoffset=-2 xadvance=22 page=0\n"
              "char id=49 x=24 y=4 width=12 height=30 xoff\n"
              "char x=1\n"
              "kerning first=48 second=49 amount=-3\n"
              "kerning first=49 sec\n" +
                  std::string(600, 'z') + "\n");
    LogCapture capture;
    ZuBMFontConfiguration* font = ZuBMFontConfiguration::create(app, (dir.path() + "font/score.fnt").c_str());
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->getDefFontSize(), 32);
    EXPECT_EQ(font->getCommonHeight(), 40);
    EXPECT_EQ(font->getPadding(3), 4);
    EXPECT_EQ(font->getAtlasName(), (dir.path() + "font/score.png").c_str());
    EXPECT_EQ(font->getCharCount(), 2);
    const _BMFontDef* zero = font->getBMFontDef('0');
    ASSERT_NE(zero, nullptr);
    EXPECT_EQ(zero->width, 20.0f);
    EXPECT_EQ(zero->yOffset, -2);
    EXPECT_EQ(zero->xAdvance, 22);
    const _BMFontDef* one = font->getBMFontDef('1');
    ASSERT_NE(one, nullptr);
    EXPECT_EQ(one->width, 12.0f);
    EXPECT_EQ(one->xOffset, 0);  // cut off before its value
    EXPECT_FALSE(font->isExist('2'));
    EXPECT_EQ(font->getKerning('0', '1'), -3);
    EXPECT_EQ(capture.count("line 6: glyph 49 cut short", ZU_LOG_WARN), 1);
    EXPECT_EQ(capture.count("line 7: \"char\" without an id", ZU_LOG_WARN), 1);
    EXPECT_EQ(capture.count("line 9: kerning pair cut short", ZU_LOG_WARN), 1);
    font->release();

    // No glyph, or no file: no font.
    dir.write("font/empty.fnt", "info face=\"x\" size=0\nchars count=0\n");
    EXPECT_EQ(ZuBMFontConfiguration::create(app, (dir.path() + "font/empty.fnt").c_str()), nullptr);
    EXPECT_EQ(ZuBMFontConfiguration::create(app, (dir.path() + "font/none.fnt").c_str()), nullptr);
    EXPECT_EQ(capture.count("no \"char\" line", ZU_LOG_WARN), 1);
    EXPECT_EQ(capture.count("file not found", ZU_LOG_WARN), 1);
}

TEST_F(AniFrameTest, ABitFontScoreDrawsItsDigitsHidesUnusedPlacesAndKeepsItsAnchor) {
    // A strip of 16 cells of 4 pixels: "0" green, "1" red, the rest blue.
    std::vector<uint8_t> strip;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 64; ++x) {
            const int cell = x / 4;
            const uint8_t px[4] = {static_cast<uint8_t>(cell == 1 ? 255 : 0), static_cast<uint8_t>(cell == 0 ? 255 : 0),
                                   static_cast<uint8_t>(cell > 1 ? 255 : 0), 255};
            strip.insert(strip.end(), px, px + 4);
        }
    ZuPngWriter writer(app);
    ASSERT_EQ(writer.write((dir.path() + "digits.png").c_str(), 64, 4, strip.data()), 1);
    auto* font = dynamic_cast<ZuBitFontNode*>(
        app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode("ZuBitFontNode", "s", "score"));
    ASSERT_NE(font, nullptr);
    font->init((dir.path() + "digits.png").c_str(), 8.0f);
    font->setPositionX(20.0f, 20.0f, 0.0f);
    scene->addChild(font);
    // Bounding boxes of the reddest and greenest pixels.
    auto boxes = [&]() {
        const std::vector<uint8_t> pixels = scenePixels();
        std::vector<int> red = {kSize, kSize, -1, -1}, green = {kSize, kSize, -1, -1};
        for (int y = 0; y < kSize; ++y)
            for (int x = 0; x < kSize; ++x) {
                const uint8_t* p = &pixels[(static_cast<size_t>(y) * kSize + x) * 4];
                std::vector<int>* box = p[0] > 200 && p[1] < 60 ? &red : p[1] > 200 && p[0] < 60 ? &green : nullptr;
                if (!box) continue;
                (*box)[0] = std::min((*box)[0], x), (*box)[1] = std::min((*box)[1], y);
                (*box)[2] = std::max((*box)[2], x), (*box)[3] = std::max((*box)[3], y);
            }
        return std::make_pair(red, green);
    };
    // Cell edges blend with the neighbouring glyph on the strip: a pixel of slack.
    auto near = [](const std::vector<int>& got, const std::vector<int>& want) {
        for (int i = 0; i < 4; ++i)
            if (std::abs(got[i] - want[i]) > 1) return false;
        return true;
    };
    font->setText(10);
    frame();
    auto drawn = boxes();
    EXPECT_TRUE(near(drawn.first, {20, 20, 27, 27}));
    EXPECT_TRUE(near(drawn.second, {28, 20, 35, 27}));

    font->setText("12345678901");  // eleven characters: the last text stays
    EXPECT_EQ(font->getText(), "10");
    font->setText("1");  // the second place collapses
    frame();
    drawn = boxes();
    EXPECT_TRUE(near(drawn.first, {20, 20, 27, 27}));
    EXPECT_EQ(drawn.second[2], -1);

    // Centred: the text's middle stays on the node whatever its length.
    font->setAtcPt(BITFONT_ATCH_CC);
    font->setText("10");
    frame();
    drawn = boxes();
    EXPECT_TRUE(near(drawn.first, {12, 16, 19, 23}));
    EXPECT_TRUE(near(drawn.second, {20, 16, 27, 23}));
}

TEST_F(AniFrameTest, ABitmapFontLineDrawsItsGlyphsAtTheFontSizeAskedFor) {
    // Page 16 x 8: "A" red on the left, "B" green on the right.
    std::vector<uint8_t> page;
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 16; ++x) {
            const uint8_t px[4] = {static_cast<uint8_t>(x < 8 ? 255 : 0), static_cast<uint8_t>(x < 8 ? 0 : 255), 0, 255};
            page.insert(page.end(), px, px + 4);
        }
    dir.write("bm/ab.fnt", "info face=\"ab\" size=8\ncommon lineHeight=8\npage id=0 file=\"ab.png\"\n"
                           "char id=65 x=0 y=0 width=8 height=8 xoffset=0 yoffset=0 xadvance=8\n"
                           "char id=66 x=8 y=0 width=8 height=8 xoffset=0 yoffset=0 xadvance=8\n");
    dir.write("bm/zero.fnt", "info face=\"z\" size=0\npage id=0 file=\"ab.png\"\n"
                             "char id=65 x=0 y=0 width=8 height=8 xoffset=0 yoffset=0 xadvance=8\n");
    ZuPngWriter writer(app);
    ASSERT_EQ(writer.write((dir.path() + "bm/ab.png").c_str(), 16, 8, page.data()), 1);
    auto make = [&](const char* file) {
        auto* node = dynamic_cast<ZuBMFontNode*>(
            app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode("ZuBMFontNode", "s", file));
        if (!node) return node;
        node->init((dir.path() + "bm/" + file).c_str());
        node->setPositionX(10.0f, 10.0f, 0.0f);
        scene->addChild(node);
        return node;
    };
    ZuBMFontNode* line = make("ab.fnt");
    ASSERT_NE(line, nullptr);
    LogCapture capture;
    line->setText("AB\xE4");  // a character cut by the end is dropped
    EXPECT_EQ(line->getGlyphCount(), 2);
    EXPECT_EQ(capture.count("broken character", ZU_LOG_WARN), 1);
    frame();
    EXPECT_EQ(redBox(scenePixels()), (std::vector<int>{10, 10, 17, 17}));
    line->setFontSize(16);
    frame();
    const std::vector<int> doubled = redBox(scenePixels());
    EXPECT_NEAR(doubled[0], 10, 1);
    EXPECT_NEAR(doubled[2], 25, 1);
    EXPECT_NEAR(doubled[3], 25, 1);
    line->setVisible(false);

    ZuBMFontNode* zero = make("zero.fnt");
    ASSERT_NE(zero, nullptr);
    zero->setText("A");
    frame();
    EXPECT_EQ(redBox(scenePixels())[0], -1);
}
