// Skeletal stickers: the "anim" item with a "spine" member, bones pinned to a
// tracked face (place, size, turn), the play, complete, stop and switch
// logic with its events, one batch per atlas page, the shared skeleton pool,
// a progress bar scrubbed by its value, and broken package files.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "event/ZuAnimateEvent.h"
#include "event/ZuAnimateSyncPositionEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuPickEvent.h"
#include "event/ZuReactEvent.h"
#include "event/ZuResetTimeStateEvent.h"
#include "logicsys/Animate2D/ZuAniSpineNode.h"
#include "logicsys/Animate2D/ZuProgressNode.h"
#include "logicsys/Animate2D/ZuSpine.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "operate/ZuOperateDelEft.h"
#include "parse/ZuParse2DAni.h"
#include "parse/ZuParseAnimate.h"
#include "parse/ZuParseMgr.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "person/ZuPersonTracker.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboObject.h"
#include "render/object/ZuPickColorRenderObject.h"
#include "render/texture/ZuPngWriter.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "scene/ZuSpineNodeNameVisitor.h"
#include "spine/spRuntime.h"
#include "support/EngineFixture.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"
#include "support/WireRecord.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

const int kSize = 128;

// What animation and reset-time events reach it.
class SpineEventLog : public ZuEventProc {
public:
    explicit SpineEventLog(ZuAppMain* app) : ZuEventProc(app) {}
    bool procEvent(ZuEvent* event) override {
        if (!event) return true;
        // Animation events of the stickers under test, not the ones a test sends.
        auto* animate = dynamic_cast<ZuAnimateEvent*>(event);
        if (animate && !(animate->animationName == "other")) seen.push_back(event->name.c_str());
        if (auto* reset = dynamic_cast<ZuResetTimeStateEvent*>(event)) seen.push_back("reset" + std::to_string(reset->state));
        if (auto* sync = dynamic_cast<ZuAnimateSyncPositionEvent*>(event)) {
            syncBone = sync->second.c_str();
            syncX = sync->x;
            syncY = sync->y;
        }
        return true;
    }
    // In arrival order, except that the two pools of one delivery are merged
    // in name order.
    std::vector<std::string> take() {
        std::vector<std::string> out;
        out.swap(seen);
        std::sort(out.begin(), out.end());
        return out;
    }
    std::vector<std::string> seen;
    std::string syncBone;
    float syncX = -1, syncY = -1;
};

using Names = std::vector<std::string>;

// FP records of this scene: points not named sit at (64, 100).
std::vector<uint8_t> fpRecord(const LandmarkMap& points, int faces = 1) {
    return fpFaceRecord(points, {64.0f, 100.0f}, {0, 0, kSize, kSize}, faces);
}

// A page description in the atlas format, one 8 x 8 region filling the page.
std::string atlasPage(const std::string& page, const std::string& region) {
    return page + "\nsize: 8,8\nformat: RGBA8888\nfilter: Linear,Linear\nrepeat: none\n" + region +
           "\n  rotate: false\n  xy: 0, 0\n  size: 8, 8\n  orig: 8, 8\n  offset: 0, 0\n  index: -1\n";
}

// A skeleton: bone "pin" under the root carries a red box of w x h units;
// "animation" moves bone "tip" for `seconds`, "short" lasts half a second.
std::string boxSkeleton(float w, float h, float seconds = 1.0f) {
    char text[1024];
    snprintf(text, sizeof text, R"({"skeleton": {"hash": "t", "spine": "1.0"},
        "bones": [{"name": "root"}, {"name": "pin", "parent": "root"}, {"name": "tip", "parent": "pin", "x": 50}],
        "slots": [{"name": "box", "bone": "pin", "attachment": "red"}],
        "skins": {"default": {"box": {"red": {"width": %g, "height": %g}}}},
        "animations": {
          "animation": {"bones": {"tip": {"translate": [{"time": 0, "x": 0}, {"time": %g, "x": 100}]}}},
          "short": {"bones": {"tip": {"translate": [{"time": 0, "x": 0}, {"time": 0.5, "x": 100}]}}}}})",
             w, h, seconds);
    return text;
}

class SpineNodeTest : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override { return {dir.path()}; }
    void SetUp() override {
        EngineTest::SetUp();
        ZuGlobalMgr* managers = app->getGlobalMgr();
        scene = createSquareScene("s", kSize);
        ASSERT_NE(scene, nullptr);
        log = new SpineEventLog(app);
        managers->getEventMgr()->registProcer(log);
        dir.write("pkg/box.atlas", atlasPage("red.png", "red"));
        writePng("pkg/red.png", {255, 0, 0, 255});
        writePng("pkg/green.png", {0, 255, 0, 255});
    }
    void TearDown() override {
        if (app && log) app->getGlobalMgr()->getEventMgr()->unregistProcer(log);
        qzSafeRelease(log);
        EngineTest::TearDown();
    }
    void writePng(const std::string& name, std::vector<uint8_t> rgba) {
        std::vector<uint8_t> pixels;
        for (int i = 0; i < 64; ++i) pixels.insert(pixels.end(), rgba.begin(), rgba.end());
        ZuPngWriter writer(app);
        ASSERT_EQ(writer.write((dir.path() + name).c_str(), 8, 8, pixels.data()), 1);
    }
    // Loads package `folder` (under the temporary directory, or a full path)
    // through the facade and waits for node `id` of person `person`.
    ZuAniSpineNode* load(const std::string& folder, const std::string& id, int person, int resUID = 9) {
        const std::string path = folder[0] == '/' ? folder : dir.path() + folder;
        app->getAppInter()->loadEffect("s", path.c_str(), resUID, 0);
        const std::string name = "s_" + id + "_" + std::to_string(person) + "_" + std::to_string(resUID);
        ZuAniSpineNode* node = nullptr;
        // Built, and its page images decoded on the load thread.
        for (int i = 0; i < 300 && !(node && node->isReady()); ++i) {
            frame();
            node = dynamic_cast<ZuAniSpineNode*>(app->getGlobalMgr()->getNodeMgr()->getNode(name.c_str()));
            usleep(2000);
        }
        return node;
    }
    void face(const std::map<int, std::pair<float, float>>& points, int faces = 1) {
        const std::vector<uint8_t> record = fpRecord(points, faces);
        app->getAppInter()->setDetectData("s", record.data(), static_cast<int>(record.size()));
    }
    std::vector<uint8_t> scenePixels() {
        glBindFramebuffer(GL_FRAMEBUFFER, scene->getFbo()->getFboID());
        std::vector<uint8_t> pixels = readPixels(0, 0, kSize, kSize);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }
    // Pixels of one pure colour (0 red, 1 green): their count, centre and
    // second moments (for the long axis).
    struct Blob {
        int n = 0;
        double cx = 0, cy = 0, cxx = 0, cyy = 0, cxy = 0;
        int x0 = kSize, y0 = kSize, x1 = -1, y1 = -1;
        double width() const { return x1 - x0 + 1; }
        double height() const { return y1 - y0 + 1; }
        double axisDegrees() const { return 0.5 * std::atan2(2 * cxy, cxx - cyy) * 57.29578; }
    };
    static Blob blob(const std::vector<uint8_t>& pixels, int channel) {
        Blob b;
        auto hit = [&](int x, int y) {
            const uint8_t* p = &pixels[(static_cast<size_t>(y) * kSize + x) * 4];
            return p[channel] > 200 && p[1 - channel] < 50 && p[2] < 50;
        };
        for (int y = 0; y < kSize; ++y)
            for (int x = 0; x < kSize; ++x)
                if (hit(x, y)) {
                    b.n++, b.cx += x + 0.5, b.cy += y + 0.5;
                    b.x0 = std::min(b.x0, x), b.y0 = std::min(b.y0, y);
                    b.x1 = std::max(b.x1, x), b.y1 = std::max(b.y1, y);
                }
        if (!b.n) return b;
        b.cx /= b.n, b.cy /= b.n;
        for (int y = 0; y < kSize; ++y)
            for (int x = 0; x < kSize; ++x)
                if (hit(x, y)) {
                    const double dx = x + 0.5 - b.cx, dy = y + 0.5 - b.cy;
                    b.cxx += dx * dx, b.cyy += dy * dy, b.cxy += dx * dy;
                }
        return b;
    }
    ZuPerson* person1() { return app->getGlobalMgr()->getPersonSys()->getPerson("s", 1); }
    int fpIndex(int standard) { return app->getGlobalMgr()->getDetectMgr()->getDetect()->transformIndex(standard); }
    // A face item with the box skeleton, its pin on standard landmark 46
    // ("460"), playing from the start; its clip is long enough that no turn
    // ends while a test looks (ticks follow the wall clock).
    void writeFacePackage(float w, float h) {
        dir.write("pkg/box.json", boxSkeleton(w, h, 600.0f));
        dir.write("pkg/config.json", R"({"param": [{"id": "box", "type": "anim", "subType": "face",
            "personid": "1", "loop": "1", "spine": {"spine_name": "box", "boneMap": {"pin": "460"}}}]})");
    }

    TempDir dir;
    ZuScene* scene = nullptr;
    SpineEventLog* log = nullptr;
};

} // namespace

TEST_F(SpineNodeTest, AFaceStickerSitsOnItsLandmarkAndScalesWithTheFace) {
    writeFacePackage(260, 260);
    ZuAniSpineNode* node = load("pkg", "box", 1);
    ASSERT_NE(node, nullptr);
    const int pin = fpIndex(46);
    // The same face at two sizes: eyes 40 then 80 pixels apart, the pinned
    // landmark moved with the picture's scale about its corner.
    double widths[2] = {0, 0};
    for (int k = 0; k < 2; ++k) {
        const float s = k ? 2.0f : 1.0f;
        face({{74, {20 * s, 30 * s}}, {77, {60 * s, 30 * s}}, {pin, {30 * s, 40 * s}}});
        frame();
        frame();
        ZuPerson* person = person1();
        ASSERT_TRUE(person && person->getExist());
        const Blob red = blob(scenePixels(), 0);
        ASSERT_GT(red.n, 0) << "scale " << s;
        EXPECT_NEAR(red.cx, person->getFaceDataX(pin), 2.0) << "scale " << s;
        EXPECT_NEAR(red.cy, person->getFaceDataY(pin), 2.0) << "scale " << s;
        // 260 units are the eye distance.
        EXPECT_NEAR(red.width(), person->getTracker()->eyeDistance, 1.5) << "scale " << s;
        widths[k] = red.width();
    }
    EXPECT_NEAR(widths[1] / widths[0], 2.0, 0.06);

    // The face goes: the sticker is hidden and frozen, one reset-time 0 is sent.
    log->take();
    face({}, 0);
    frame();
    frame();
    frame();  // events of a frame's update arrive two event passes later
    EXPECT_EQ(blob(scenePixels(), 0).n, 0);
    EXPECT_EQ(node->getPlayState(), ZuAniSpineNode::STATE_PAUSED);
    Names names = log->take();
    EXPECT_EQ(std::count(names.begin(), names.end(), "reset0"), 1);
    // It comes back: restarted from 0, reset-time 1.
    face({{74, {20, 30}}, {77, {60, 30}}, {pin, {30, 40}}});
    frame();
    frame();
    frame();
    EXPECT_GT(blob(scenePixels(), 0).n, 0);
    EXPECT_EQ(node->getPlayState(), ZuAniSpineNode::STATE_PLAYING);
    names = log->take();
    EXPECT_EQ(std::count(names.begin(), names.end(), "reset1"), 1);
}

TEST_F(SpineNodeTest, AFaceStickerTurnsWithTheEyeLine) {
    writeFacePackage(60, 260);
    ZuAniSpineNode* node = load("pkg", "box", 1);
    ASSERT_NE(node, nullptr);
    const int pin = fpIndex(46);
    // Eye line about 31 degrees off the horizontal.
    face({{74, {44, 68}}, {77, {84, 44}}, {pin, {64, 64}}});
    frame();
    frame();
    const Blob red = blob(scenePixels(), 0);
    ASSERT_GT(red.n, 50);
    const float eyeLine = person1()->getTracker()->eyeLineAngle;
    ASSERT_GT(std::fabs(eyeLine), 20.0f);
    // The tall box's long axis is the face's up axis.
    const double off = std::fmod(red.axisDegrees() - 90.0 - eyeLine + 720.0, 180.0);
    EXPECT_NEAR(std::min(off, 180.0 - off), 0.0, 3.0) << "axis " << red.axisDegrees() << ", eye line " << eyeLine;
}

TEST_F(SpineNodeTest, EveryAtlasPageDrawsWithItsOwnTexture) {
    dir.write("pkg/two.atlas", atlasPage("red.png", "red") + "\n" + atlasPage("green.png", "green"));
    dir.write("pkg/two.json", R"({"skeleton": {"hash": "t", "spine": "1.0"},
        "bones": [{"name": "root"}, {"name": "left", "parent": "root", "x": -150, "y": 640},
                  {"name": "right", "parent": "root", "x": 150, "y": 640}],
        "slots": [{"name": "a", "bone": "left", "attachment": "red"}, {"name": "b", "bone": "right", "attachment": "green"}],
        "skins": {"default": {"a": {"red": {"width": 200, "height": 200}}, "b": {"green": {"width": 200, "height": 200}}}},
        "animations": {"animation": {}}})");
    dir.write("pkg/config.json", R"({"param": [{"id": "two", "type": "anim", "subType": "screen", "loop": "1",
        "spine": {"spine_name": "two", "animation": "ignored"}}]})");
    ZuAniSpineNode* node = load("pkg", "two", 0);
    ASSERT_NE(node, nullptr);
    ASSERT_EQ(node->getBatchCount(), 2u);
    frame();
    const std::vector<uint8_t> pixels = scenePixels();
    const Blob red = blob(pixels, 0), green = blob(pixels, 1);
    // A screen sticker is placed and mirrored for the camera by its node.
    const float px = node->getPositionX(), py = node->getPositionY();
    const float sx = node->getScale().x, sy = node->getScale().y;
    ASSERT_GT(red.n, 0);
    ASSERT_GT(green.n, 0);
    EXPECT_NEAR(red.cx, px - sx * 150, 1.0);
    EXPECT_NEAR(red.cy, py + sy * 640, 1.0);
    EXPECT_NEAR(red.width(), 200 * std::fabs(sx), 1.0);
    EXPECT_NEAR(red.height(), 200 * std::fabs(sy), 1.0);
    EXPECT_NEAR(green.cx, px + sx * 150, 1.0);
    EXPECT_NEAR(green.cy, py + sy * 640, 1.0);
    EXPECT_EQ(node->getBatchVertexCount(0) + node->getBatchVertexCount(1), 8);
    // The "spine" key "animation" changes nothing: the default clip plays.
    EXPECT_EQ(node->getCurrentActName(), "animation");
}

TEST_F(SpineNodeTest, AMaskTextureCutsTheStickerWhereItIsClear) {
    dir.write("pkg/box.json", boxSkeleton(600, 600));
    // Clear on the left half of the screen, opaque on the right.
    std::vector<uint8_t> half;
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) half.insert(half.end(), {255, 255, 255, static_cast<uint8_t>(x < 4 ? 0 : 255)});
    ZuPngWriter writer(app);
    ASSERT_EQ(writer.write((dir.path() + "pkg/half.png").c_str(), 8, 8, half.data()), 1);
    dir.write("pkg/config.json", R"({"param": [{"id": "cut", "type": "anim", "subType": "screen", "loop": "1",
        "texMask": "half", "spine": {"spine_name": "box"}}]})");
    ZuAniSpineNode* node = load("pkg", "cut", 0);
    ASSERT_NE(node, nullptr);
    frame();
    const Blob red = blob(scenePixels(), 0);
    ASSERT_GT(red.n, 0);
    // The box spans the middle of the screen; only its right part is left.
    EXPECT_GE(red.x0, kSize / 2 - 1);
    EXPECT_LT(node->getPositionX() + node->getScale().x * 300, kSize / 2.0f - 8);
}

TEST_F(SpineNodeTest, PlayCompleteStopAndSwitchSendTheirEventsFrameByFrame) {
    dir.write("pkg/box.json", boxSkeleton(20, 20));
    dir.write("pkg/config.json", R"({"param": [{"id": "ev", "type": "anim", "subType": "screen", "loop": "1",
        "reactState": "1", "syncPosBoneName": ["tip"],
        "triggeredBy": [{"category": "dependency", "dependsOn": "other", "event": "aniPlay"}],
        "reactEvents": [{"event": "tap", "animation": "short", "loop": "0", "next": "animation"}],
        "spine": {"spine_name": "box"}}]})");
    ZuAniSpineNode* node = load("pkg", "ev", 0);
    ASSERT_NE(node, nullptr);
    EXPECT_FALSE(node->isVisible());  // waits for its trigger
    EXPECT_TRUE(node->getCanSelect());
    ZuEventMgr* events = app->getGlobalMgr()->getEventMgr();
    auto deliver = [&]() {
        events->update(0.0f);
        events->update(0.0f);
        return log->take();
    };
    auto tick = [&](float ms) {
        node->update(ms);
        return deliver();
    };
    deliver();

    // Started by another animation's "aniPlay".
    auto* start = new ZuAnimateEvent("s");
    start->name = "aniPlay";
    start->animationName = "other";
    events->pushEvent(start);
    EXPECT_EQ(deliver(), Names({"aniPlay"}));
    EXPECT_TRUE(node->isVisible());
    EXPECT_EQ(node->getPlayState(), ZuAniSpineNode::STATE_PLAY_REQUESTED);

    // One second at 125 ms ticks: the first tick starts the turn, the eighth
    // completes it; a looping sticker stays and restarts on the next tick.
    EXPECT_EQ(tick(125), Names({"reset1"}));
    for (int i = 2; i <= 7; ++i) EXPECT_EQ(tick(125), Names()) << "tick " << i;
    EXPECT_EQ(log->syncBone, "tip");
    EXPECT_EQ(tick(125), Names({"aniComplete", "reset0"}));
    EXPECT_TRUE(node->isVisible());
    EXPECT_EQ(node->getPlayState(), ZuAniSpineNode::STATE_STOPPED);
    EXPECT_EQ(tick(125), Names({"reset1"}));
    EXPECT_EQ(node->getPlayState(), ZuAniSpineNode::STATE_PLAYING);

    // A tap of this package switches to "short" for one turn, then its
    // "next" clip plays.
    auto* tap = new ZuReactEvent("s");
    tap->name = "tap";
    tap->resUID = 9;
    events->pushEvent(tap);
    EXPECT_EQ(deliver(), Names({"aniPlay"}));
    EXPECT_EQ(node->getCurrentActName(), "short");
    EXPECT_EQ(tick(250), Names({"reset1"}));
    EXPECT_EQ(tick(250), Names({"aniComplete", "aniPlay", "reset0"}));
    EXPECT_EQ(node->getCurrentActName(), "animation");
    EXPECT_TRUE(node->isVisible());
    // A tap of another package does nothing.
    tap = new ZuReactEvent("s");
    tap->name = "tap";
    tap->resUID = 8;
    events->pushEvent(tap);
    EXPECT_EQ(deliver(), Names());

    // stop: hidden, one "aniStop"; a second stop sends nothing.
    node->stop();
    node->stop();
    EXPECT_EQ(deliver(), Names({"aniStop"}));
    EXPECT_FALSE(node->isVisible());
    // An unknown clip leaves visibility alone and sends nothing.
    EXPECT_FALSE(node->play("nosuch", true));
    EXPECT_EQ(deliver(), Names());
    EXPECT_FALSE(node->isVisible());
}

TEST_F(SpineNodeTest, FourFaceNodesShareOneSkeletonAndBoneMapIndicesAreDividedByTen) {
    dir.write("pkg/box.json", boxSkeleton(20, 20));
    dir.write("pkg/config.json", R"({"param": [{"id": "all", "type": "anim", "subType": "face",
        "triggeredBy": [{"category": "mouthopen"}],
        "spine": {"spine_name": "box", "boneMap": {"pin": "745", "nosuch": "10"}}}]})");
    ZuAniSpineNode* first = load("pkg", "all", 1);
    ASSERT_NE(first, nullptr);
    ZuSpineNodeNameVisitor* visitor = new ZuSpineNodeNameVisitor("box");
    app->getGlobalMgr()->getNodeMgr()->visit(visitor);
    EXPECT_EQ(visitor->count(), 4u);
    visitor->release();
    EXPECT_EQ(app->getGlobalMgr()->getParseMgr()->getSkeletonPool().size(), 1u);
    // "745" pins standard landmark 74, outside the table: the tracker's point 0.
    face({{0, {10, 20}}, {74, {40, 30}}, {77, {80, 30}}});
    first->play();
    frame();
    frame();
    spBone* pin = first->getHeadBone("pin");
    ASSERT_NE(pin, nullptr);
    EXPECT_NEAR(pin->worldX, person1()->getFaceDataX(0), 0.01);
    EXPECT_NEAR(pin->worldY, person1()->getFaceDataY(0), 0.01);
    // Removing the package drops the skeleton nobody holds any more.
    push(new ZuOperateDelEft(app, 9, "s"));
    frame();
    EXPECT_EQ(app->getGlobalMgr()->getParseMgr()->getSkeletonPool().size(), 0u);
}

TEST_F(SpineNodeTest, BrokenFilesAndWrongKeysAreLoggedAndMakeNoNode) {
    LogCapture capture;
    std::string path = dir.path() + "pkg/";
    rapidjson::Document item;
    auto build = [&](const char* json) {
        item.Parse(json);
        ZuParseData* data = ZuParse2DAni::parse2DAni(app, item, 3, "s", path.c_str());
        if (!data) return -1;
        data->generate(3, "s", &path[0]);
        const int count = static_cast<int>(data->getNodes().size());
        data->release();
        return count;
    };
    dir.write("pkg/cut.json", boxSkeleton(20, 20).substr(0, 120));
    dir.write("pkg/cut.atlas", atlasPage("red.png", "red"));
    EXPECT_EQ(build(R"({"id": "a", "spine": {"spine_name": "cut"}})"), 0);
    EXPECT_GE(capture.count("skeleton " + path + "cut.json does not load", ZU_LOG_WARN), 1);

    dir.write("pkg/ok.json", boxSkeleton(20, 20));
    dir.write("pkg/ok.atlas", "red.png\nsize: 8,8\nformat: RGBA8888\nfilter: Linear,Linear\nrepeat: none\nred\n  xy: 0");
    EXPECT_EQ(build(R"({"id": "b", "spine": {"spine_name": "ok"}})"), 0);
    EXPECT_GE(capture.count("atlas " + path + "ok.atlas does not load", ZU_LOG_WARN), 1);

    // A page image that is not there: the node is made, never ready, draws nothing.
    dir.write("pkg/ok.atlas", atlasPage("gone.png", "red"));
    EXPECT_EQ(build(R"({"id": "c", "spine": {"spine_name": "ok"}})"), 1);
    frame();
    frame();
    EXPECT_EQ(blob(scenePixels(), 0).n, 0);

    EXPECT_EQ(build(R"({"id": "d", "spine": "ok", "texMask": 3, "syncPosBoneName": "tip"})"), 0);
    EXPECT_GE(capture.count("\"spine\" is not an object", ZU_LOG_WARN), 1);
    EXPECT_GE(capture.count("\"texMask\" is not a string", ZU_LOG_WARN), 1);
    EXPECT_GE(capture.count("\"syncPosBoneName\" is not an array", ZU_LOG_WARN), 1);
    EXPECT_EQ(build(R"({"id": "e", "spine": {"spine_name": 5, "boneMap": [1]}, "texHead": {}})"), 0);
    EXPECT_GE(capture.count("\"spine_name\" is not a string", ZU_LOG_WARN), 1);
    EXPECT_GE(capture.count("\"boneMap\" is not an object", ZU_LOG_WARN), 1);
    EXPECT_GE(capture.count("\"texHead\" is not an array", ZU_LOG_WARN), 1);
}

TEST_F(SpineNodeTest, AProgressBarFollowsItsValueNotTheClock) {
    const std::string sample = std::string(QZ_SOURCE_DIR) + "/samples/packages/score_progress/";
    auto* bar = dynamic_cast<ZuProgressNode*>(
        app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode("ZuProgressNode", "s", "bar"));
    ASSERT_NE(bar, nullptr);
    ZuSpine* spine = ZuSpine::createSpine(app, "s", (sample + "score_bar.json").c_str(),
                                          (sample + "score_bar.atlas").c_str(), 1.0f);
    ASSERT_NE(spine, nullptr);
    bar->setSpine(spine);
    spine->release();
    ASSERT_TRUE(bar->play("spine_ani", false));
    bar->update(16);
    EXPECT_FLOAT_EQ(spine->getAnimationDuration("spine_ani"), 2000.0f);
    spBone* tip = bar->getHeadBone("tip");
    const float start = tip->worldX;
    // Time passing moves nothing; the value does, both ways.
    bar->update(500);
    EXPECT_FLOAT_EQ(tip->worldX, start);
    for (float value : {50.0f, 25.0f, 100.0f}) {
        bar->setProgress(value);
        EXPECT_NEAR(tip->worldX - start, 400.0f * value / 100.0f, 0.5f) << value;
        EXPECT_FLOAT_EQ(bar->getShownTime(), 20.0f * value);
    }
    bar->setProgress(150.0f);  // beyond the maximum: ignored
    EXPECT_FLOAT_EQ(bar->getProgress(), 100.0f);
    LogCapture capture;
    spine->setAnimationStateData(nullptr);
    EXPECT_EQ(capture.count("stateData cannot be null.", ZU_LOG_WARN), 1);
    EXPECT_TRUE(bar->play("spine_ani", false));  // the old state is kept
}

namespace {
// A face record with a mouth 40 pixels wide, its lips apart by gap.
std::vector<uint8_t> mouthRecord(float gap) {
    return fpRecord({{74, {44, 60}}, {77, {84, 60}}, {84, {44, 96}}, {90, {84, 96}}, {93, {64, 100 + gap}},
                     {87, {64, 92}}, {98, {64, 94}}, {102, {64, 94 + gap}}});
}
} // namespace

TEST_F(SpineNodeTest, TheSamplePackageStartsOnAnOpenMouthInThatFrameAndStopsWhenItShuts) {
    ZuAniSpineNode* node = load(std::string(QZ_SOURCE_DIR) + "/samples/packages/sticker_spine_mouth", "puff", 1);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->getBatchCount(), 2u);  // hearts and bubbles lie on two pages
    ZuAppNative* host = app->getAppInter();
    auto lit = [&]() {
        const std::vector<uint8_t> pixels = scenePixels();
        int n = 0;
        for (size_t i = 0; i < pixels.size(); i += 4) n += pixels[i] + pixels[i + 1] + pixels[i + 2] > 0;
        return n;
    };
    // Shut, then open: the frame that starts the sticker draws it.
    auto run = [&](float gap, int wantState) {
        const std::vector<uint8_t> record = mouthRecord(gap);
        for (int i = 0; i < 60; ++i) {
            host->setDetectData("s", record.data(), static_cast<int>(record.size()));
            frame();
            usleep(5000);  // expressions are judged over time, not per frame
            const bool drawn = lit() > 0;
            if (node->getPlayState() == wantState) return std::make_pair(i, drawn);
            EXPECT_EQ(drawn, wantState != ZuAniSpineNode::STATE_PLAYING) << "frame " << i;
        }
        return std::make_pair(-1, false);
    };
    EXPECT_FALSE(node->isVisible());
    std::pair<int, bool> opened = run(32.0f, ZuAniSpineNode::STATE_PLAYING);
    ASSERT_GE(opened.first, 0);
    EXPECT_TRUE(opened.second);
    // Playing on through a turn (the clock is the wall's): the pieces leave
    // the lip and grow, then fade.
    const int first = lit();
    const std::vector<uint8_t> open = mouthRecord(32.0f);
    int most = 0;
    for (int i = 0; i < 16; ++i) {
        host->setDetectData("s", open.data(), static_cast<int>(open.size()));
        frame();
        most = std::max(most, lit());
        usleep(40000);
    }
    EXPECT_GT(most, 4 * first);
    std::pair<int, bool> shut = run(0.0f, ZuAniSpineNode::STATE_STOPPED);
    ASSERT_GE(shut.first, 0);
    EXPECT_FALSE(shut.second);
}

namespace {
class PickLog : public ZuEventProc {
public:
    explicit PickLog(ZuAppMain* app) : ZuEventProc(app) {}
    bool procEvent(ZuEvent* event) override {
        if (event && event->type == ZU_EVENT_PICK) uids.push_back(static_cast<ZuPickEvent*>(event)->pickedUid);
        return true;
    }
    std::vector<int> uids;
};
} // namespace

TEST_F(SpineNodeTest, ASelectableStickerIsPickedByItsVisibleTexelsOnly) {
    dir.write("pkg/box.json", boxSkeleton(200, 200));
    dir.write("pkg/config.json", R"({"param": [{"id": "tap", "type": "anim", "subType": "screen", "loop": "1",
        "reactState": "1", "spine": {"spine_name": "box"}}]})");
    ZuAniSpineNode* node = load("pkg", "tap", 0);
    ASSERT_NE(node, nullptr);
    ASSERT_TRUE(node->getCanSelect());
    PickLog* picks = new PickLog(app);
    app->getGlobalMgr()->getEventMgr()->registProcer(picks);
    ZuPickColorRenderObject* reader = new ZuPickColorRenderObject(app);
    // The box's middle on screen, and a point well outside it.
    const int mx = static_cast<int>(node->getPositionX() + node->getScale().x * 50);
    const int my = static_cast<int>(node->getPositionY() + node->getScale().y * 0);
    for (auto point : {std::make_pair(mx, my + 2), std::make_pair(kSize - 3, kSize - 3)}) {
        app->update();
        reader->setPoint(point.first, point.second);
        reader->pushCmd(scene->getRenderScene(), RS_SELECT_READ, "pick");
        app->directrender("");
    }
    frame();
    frame();
    reader->release();
    app->getGlobalMgr()->getEventMgr()->unregistProcer(picks);
    // Without a pick target of its own the pass draws where the frame's
    // reads look: the box's middle reads the sticker's id, the far corner
    // reads something else.
    ASSERT_GE(picks->uids.size(), 1u);
    EXPECT_EQ(picks->uids[0], node->getuid());
    for (size_t i = 1; i < picks->uids.size(); ++i) EXPECT_NE(picks->uids[i], node->getuid());
    picks->release();
}
