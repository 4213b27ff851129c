#include "FramePattern.h"
#include "SamplePhoto.h"

#include "basesys/CBrockHelp.h"
#include "basesys/OLEngine.h"
#include "basesys/OLEngineMgr.h"
#include "basesys/Ol2.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppMainAsync.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/qzbrock.h"
#include "basesys/ZuAppMainWrap.h"
#include "basesys/qztarn.h"
#include "event/ZuParseEvent.h"
#include "event/ZuPersonEvent.h"
#include "event/ZuTnEventSys.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateRegistProcer.h"

#include <atomic>
#include "event/ZuEffectEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "support/EngineFixture.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"

#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace {

// Frames drawn after the package is ready before the picture is taken: the
// look's texture may arrive a frame after its node reports ready.
constexpr int kSettleFrames = 4;

std::string samplePackage(const char* name) { return std::string(QZ_SOURCE_DIR) + "/samples/packages/" + name; }

struct ReadyWatch : public ZuEventProc {
    explicit ReadyWatch(ZuAppMain* app) : ZuEventProc(app) {}
    bool procEvent(ZuEvent* event) override {
        if (event && event->type == ZU_EVENT_EFFECT && static_cast<ZuEffectEvent*>(event)->state == 1) ready = true;
        return true;
    }
    std::atomic<bool> ready{false};
};

// The plain facade on the host's GL: one scene with a YUV camera of the
// host code given and the output stream of the same layout, one package.
std::vector<uint8_t> plainFacadePicture(const std::vector<uint8_t>& frame, int width, int height, int hostFormat,
                                        int imageFormat, int outType, const std::string& package,
                                        bool mirrored = false) {
    const char* scene = "plain";
    auto* app = new ZuAppMain();
    app->init();
    app->addRespath(sourceAssets().c_str());
    app->initZuBase();
    ZuConfig* config = app->getGlobalMgr()->getConfig();
    config->setCameraDsp(scene, width, height, 0);
    config->cameraImageFormat = imageFormat;
    ZuAppNative* native = app->getAppInter();
    if (mirrored) {
        config->getCamera(scene)->mirror = true;
        native->createLogicSceneFull(scene, width, height, width, height);
        native->setSceneMirror(scene, true);
    } else {
        native->createLogicScene(scene, width, height, width, height);
    }
    native->createBGNode(scene, hostFormat);
    native->setOutSteamFormate(scene, outType, false, false);
    auto* watch = new ReadyWatch(app);
    app->getGlobalMgr()->getEventMgr()->registProcer(watch);
    native->loadEffect(scene, package.c_str(), 250, 0);
    std::vector<uint8_t> out(frame.size(), 0);
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!watch->ready && std::chrono::steady_clock::now() < until) {
        native->pushCameraData(scene, frame.data());
        app->update();
        app->directrender("");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_TRUE(watch->ready) << "the package never became ready on the plain facade";
    for (int i = 0; i < kSettleFrames; ++i) {
        native->pushCameraData(scene, frame.data());
        app->update();
        app->directrender("");
    }
    native->fetchRenderData(scene, out.data());
    app->getGlobalMgr()->getEventMgr()->unregistProcer(watch);
    watch->release();
    app->setState("test", ZU_ENG_STATE_STOPPING);
    app->destroyZuBase();
    app->destroy();
    app->release();
    return out;
}

// Pushes copies of frame through a one-scene facade until the package is
// ready and a picture came back; the last picture.
std::vector<uint8_t> facadePicture(ZuSceneFacade& facade, const std::vector<uint8_t>& frame, size_t hostBytes) {
    std::vector<uint8_t> buffer;
    int openFrames = 0;
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (std::chrono::steady_clock::now() < until) {
        buffer = frame;
        buffer.resize(hostBytes, 0);
        bool open = facade.getHelp()->isOutputOpen();
        facade.pushCameraData(buffer.data());
        if (open && ++openFrames == kSettleFrames) return buffer;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ADD_FAILURE() << "the facade's output never opened; canLoad " << facade.getHelp()->canLoad() << " current "
                  << facade.getHelp()->getCurrent().c_str() << " state " << int(facade.getEngine()->getState())
                  << " frames " << facade.getEngine()->getFrameCount();
    return buffer;
}

class SurfaceTest : public GLTest {};

} // namespace

// Ol2 in its host's order (create, search path, start, camera, effect,
// frames in the host's own NV21 memory) gives the plain facade's picture
// of the sample photo with a colour look.
TEST_F(SurfaceTest, Ol2MatchesPlainFacadeOnSamplePhoto) {
    constexpr int kW = 160, kH = 160;
    const std::vector<uint8_t> photo = rgbaToNv21(samplePhotoRgba(kW, kH), kW, kH);
    ASSERT_EQ(photo.size(), size_t(kW * kH * 3 / 2));
    const std::string look = samplePackage("filter_curves");
    const std::vector<uint8_t> expected = plainFacadePicture(photo, kW, kH, 0, 4, 2, look);
    ASSERT_GT(maxByteDifference(expected, photo), 20) << "the look left the photo unchanged";

    Ol2 ol2;
    ol2.createEngine();
    ol2.addSearchPath(sourceAssets().c_str());
    ol2.startEngine(OL2_CAMERA_NV21, kW, kH, 0.0f);
    ol2.setCameraDsp(OL2_CAMERA_NV21, kW, kH, 0.0f);
    ol2.loadEffect(look.c_str());
    ol2.loadEffect(samplePackage("filter_pink").c_str()); // dropped: a load is in flight
    EXPECT_EQ(std::string(ol2.getHelp()->getCurrent().c_str()), look);
    const std::vector<uint8_t> got = facadePicture(ol2, photo, photo.size());
    EXPECT_LE(maxByteDifference(got, expected), 1);
    ol2.stopEngine();
    EXPECT_EQ(std::string(ol2.getHelp()->getCurrent().c_str()), "null");
    ol2.destroyEngine();
    ASSERT_TRUE(ZuHeadlessContext::instance().makeCurrent(3));
}

// qzbrock with a width whose chroma rows the camera pads (200: 100 bytes
// padded to 112) repacks the I420 frame, runs it and unpacks the picture
// into the padded layout: equal to the plain facade's unpadded picture.
TEST_F(SurfaceTest, QzbrockRepacksPaddedChromaRows) {
    constexpr int kW = 200, kH = 160;
    ASSERT_EQ(qzbrock::chromaStride(kW), 112);
    ASSERT_EQ(qzbrock::chromaStride(1280), 640) << "a 1280 frame is not padded";
    const std::vector<uint8_t> photo = nv21ToI420(rgbaToNv21(samplePhotoRgba(kW, kH), kW, kH), kW, kH);
    const std::string look = samplePackage("filter_curves");
    const std::vector<uint8_t> expected = plainFacadePicture(photo, kW, kH, 3, 2, 4, look);

    // The host's padded layout: U rows then V rows at 112 bytes.
    const int stride = 112, chromaRows = kH / 2, luma = kW * kH;
    const size_t hostBytes = luma + 2 * size_t(stride) * ((chromaRows + 15) & ~15);
    auto pad = [&](const std::vector<uint8_t>& packed) {
        std::vector<uint8_t> padded(hostBytes, 0);
        std::copy_n(packed.begin(), luma, padded.begin());
        for (int plane = 0; plane < 2; ++plane)
            for (int row = 0; row < chromaRows; ++row)
                std::copy_n(&packed[luma + plane * (kW / 2) * chromaRows + row * (kW / 2)], kW / 2,
                            &padded[luma + plane * stride * chromaRows + row * stride]);
        return padded;
    };

    qzbrock brock;
    brock.createEngine();
    brock.addSearchPath(sourceAssets().c_str());
    brock.startEngine(BROCK_CAMERA_I420, kW, kH, 0.0f);
    brock.setCameraDsp(BROCK_CAMERA_I420, kW, kH, 0.0f);
    ASSERT_NE(brock.getHelp()->getRepackBuffer(), nullptr);
    brock.loadEffect(look.c_str());
    const std::vector<uint8_t> got = facadePicture(brock, pad(photo), hostBytes);
    const std::vector<uint8_t> want = pad(expected);
    EXPECT_LE(maxByteDifference(got, want), 1);
    brock.stopEngine();
    brock.destroyEngine();
    ASSERT_TRUE(ZuHeadlessContext::instance().makeCurrent(3));
}

// The facade's small rules: frames before the start and after the stop are
// dropped with a log line, an empty path clears, the same path twice loads
// once, a record whose count is out of range is refused.
TEST_F(SurfaceTest, OneSceneFacadeRefusesOutOfOrderCalls) {
    LogCapture log;
    Ol2 ol2;
    std::vector<uint8_t> frame(64 * 64 * 3 / 2, 90);
    ol2.pushCameraData(frame.data());
    EXPECT_GE(log.count("createEngine first"), 1);
    ol2.createEngine();
    ol2.pushCameraData(frame.data());
    EXPECT_GE(log.count("not running"), 1);
    ol2.startEngine(0, 64, 64, 0.0f);
    ol2.startEngine(0, 64, 64, 0.0f);
    EXPECT_GE(log.count("already started"), 1);
    ol2.setCameraDsp(0, 64, 64, 45.0f);
    const int32_t badCount = 9;
    ol2.pushDetectData(&badCount);
    EXPECT_GE(log.count("out of range"), 1);
    const std::string look = samplePackage("filter_pink");
    ol2.loadEffect(look.c_str());
    EXPECT_FALSE(ol2.getHelp()->canLoad());
    ol2.loadEffect("");
    EXPECT_EQ(std::string(ol2.getHelp()->getCurrent().c_str()), "null");
    ol2.stopEngine();
    ol2.pushCameraData(frame.data());
    EXPECT_EQ(frame[0], 90) << "a frame after the stop is left alone";
    ol2.destroyEngine();
    ASSERT_TRUE(ZuHeadlessContext::instance().makeCurrent(3));
}

// qztarn in its host's order (initilize, search path, camera, start, the
// off-screen recipe, output stream, effect, then update and render on the
// host's GL) gives the plain facade's picture of the photo; the host's
// callbacks hear the package's load and the expressions of a person.
TEST_F(SurfaceTest, QztarnMatchesPlainFacadeAndCallsTheHost) {
    constexpr int kW = 160, kH = 160;
    const char* scene = "tarn";
    const std::vector<uint8_t> photo = rgbaToNv21(samplePhotoRgba(kW, kH), kW, kH);
    const std::string look = samplePackage("filter_curves");
    const std::vector<uint8_t> expected = plainFacadePicture(photo, kW, kH, 0, 4, 2, look, true);

    struct Heard {
        int loaded = -1, resUID = -1, mouth = 0, actions = 0;
        std::string action;
    } heard;
    int host = 7;
    qztarn tarn;
    tarn.initilize();
    tarn.addSearchPath(sourceAssets().c_str());
    tarn.setCameraDsp(0, 2, scene, kW, kH, 0.0f);
    tarn.startEngine();
    ZuAppMainWrap* app = tarn.getApp();
    app->getGlobalMgr()->getConfig()->cameraImageFormat = 4;
    auto* callbacks = new ZuTnEventSys(app);
    callbacks->init();
    callbacks->bindHost(&host, &heard);
    callbacks->onEffectLoaded = [](void*, void* h, const char*, int resUID, int success) {
        static_cast<Heard*>(h)->loaded = success;
        static_cast<Heard*>(h)->resUID = resUID;
    };
    callbacks->onMouthOpen = [](void*, void* h, int, bool open) { static_cast<Heard*>(h)->mouth += open ? 1 : -100; };
    callbacks->onPersonAction = [](void*, void* h, int, const char* name) {
        static_cast<Heard*>(h)->actions++;
        static_cast<Heard*>(h)->action = name;
    };
    tarn.createLogicOffWin(scene, 0, kW, kH, kW, kH);
    tarn.setOutStreamNode(scene, 2, false, false);
    tarn.loadEffect(scene, look.c_str(), 250, 0);
    auto* watch = new ReadyWatch(app);
    app->getGlobalMgr()->getEventMgr()->registProcer(watch);
    std::vector<uint8_t> out(photo.size(), 0);
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!watch->ready && std::chrono::steady_clock::now() < until) {
        tarn.pushCameraData(scene, photo.data(), static_cast<int>(photo.size()));
        tarn.update();
        tarn.directrender("");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ASSERT_TRUE(watch->ready);
    for (int i = 0; i < kSettleFrames; ++i) {
        tarn.pushCameraData(scene, photo.data(), static_cast<int>(photo.size()));
        tarn.update();
        tarn.directrender("");
    }
    tarn.fetchRenderData(scene, out.data());
    EXPECT_LE(maxByteDifference(out, expected), 1);
    EXPECT_EQ(heard.loaded, 1);
    EXPECT_EQ(heard.resUID, 250);

    auto* mouth = new ZuPersonEvent(scene, 17);
    mouth->name = "mouthopen";
    mouth->personID = 0;
    app->getGlobalMgr()->getEventMgr()->pushEvent(mouth);
    tarn.update();
    tarn.update();
    EXPECT_EQ(heard.mouth, 1);
    EXPECT_EQ(heard.actions, 1);
    EXPECT_EQ(heard.action, "mouthopen");

    app->getGlobalMgr()->getEventMgr()->unregistProcer(watch);
    watch->release();
    callbacks->destroy();
    EXPECT_EQ(callbacks->onMouthOpen, nullptr);
    callbacks->release();
    tarn.stopEngine();
    tarn.destroy();
    tarn.update(); // after destroy: refused, no crash
}

namespace {

GLuint photoTexture(const std::vector<uint8_t>& rgba, int width, int height) {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 rgba.empty() ? nullptr : rgba.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    return texture;
}

std::vector<uint8_t> textureContent(GLuint texture, int width, int height) {
    GLuint fbo = 0;
    glGenFramebuffers(1, &fbo);
    glBindFramebuffer(GL_FRAMEBUFFER, fbo);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    std::vector<uint8_t> pixels = GLTest::readPixels(0, 0, width, height);
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glDeleteFramebuffers(1, &fbo);
    return pixels;
}

} // namespace

// OLEngine draws on a thread and context of its own that share the host's
// textures: the photo in the host's input texture comes out in the host's
// output texture as the plain facade draws it with the same recipe.
TEST_F(SurfaceTest, OLEngineDrawsIntoTheHostTextureOnItsOwnThread) {
    constexpr int kW = 64, kH = 64;
    const std::vector<uint8_t> photo = samplePhotoRgba(kW, kH);
    const std::string look = samplePackage("filter_curves");
    const GLuint input = photoTexture(photo, kW, kH);
    const GLuint expectedOut = photoTexture({}, kW, kH);
    const GLuint engineOut = photoTexture({}, kW, kH);
    glFinish();

    {   // The plain facade on the host's GL, with the recipe OLEngine uses.
        const char* scene = "ol";
        auto* app = new ZuAppMain();
        app->init();
        app->addRespath(sourceAssets().c_str());
        app->initZuBase();
        app->getGlobalMgr()->getConfig()->setCameraDsp(scene, kW, kH, 0);
        ZuAppNative* native = app->getAppInter();
        native->setCameraMirror(scene, true);
        native->createLogicSceneFull(scene, kW, kH, kW, kH);
        native->createBGNode(scene, static_cast<int>(input), 2, kW, kH);
        native->setSceneMirror(scene, false);
        native->createOutputTextureNode(scene, "ol_beautyouttex", expectedOut, 2, true, false);
        auto* watch = new ReadyWatch(app);
        app->getGlobalMgr()->getEventMgr()->registProcer(watch);
        native->loadEffect(scene, look.c_str(), 250, 250);
        const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        for (int after = 0; after < kSettleFrames && std::chrono::steady_clock::now() < until;) {
            app->update();
            app->directrender(scene);
            if (watch->ready) ++after;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        EXPECT_TRUE(watch->ready);
        app->getGlobalMgr()->getEventMgr()->unregistProcer(watch);
        watch->release();
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    const std::vector<uint8_t> expected = textureContent(expectedOut, kW, kH);
    ASSERT_GT(maxByteDifference(expected, flipRows(photo, kW)), 20);

    QZEngineConfig config;
    config.resourcePath = sourceAssets();
    config.sceneName = "ol";
    config.width = config.windowWidth = kW;
    config.height = config.windowHeight = kH;
    config.inputTexture = static_cast<int>(input);
    config.outputTexture = static_cast<int>(engineOut);
    OLEngine engine;
    EXPECT_FALSE(engine.updateEngine()) << "no manager before init";
    EXPECT_STREQ(engine.getVersion(), "v2.01");
    ASSERT_TRUE(engine.init(nullptr, &config));
    // The watcher joins the event list on the frame thread, which walks it.
    ZuAppMain* olApp = engine.getManager()->getApp();
    auto* watch = new ReadyWatch(olApp);
    auto* join = new ZuOperateRegistProcer(olApp, watch);
    olApp->getGlobalMgr()->getOperateMgr()->pushOperate(join);
    join->release();
    ASSERT_TRUE(engine.loadEffect(look.c_str(), 250));
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!watch->ready && std::chrono::steady_clock::now() < until)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    ASSERT_TRUE(watch->ready);
    const uint64_t readyAt = engine.getManager()->framesDrawn();
    while (engine.getManager()->framesDrawn() < readyAt + kSettleFrames)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_TRUE(engine.getManager()->hasThreadContext());
    EXPECT_TRUE(engine.pushDetectData(nullptr, 0)) << "no face: null and 0";
    ASSERT_TRUE(engine.unInit());
    watch->release();
    EXPECT_FALSE(engine.pushCameraData(nullptr, 0)) << "after unInit";
    ASSERT_TRUE(ZuHeadlessContext::instance().makeCurrent(3));
    EXPECT_LE(maxByteDifference(textureContent(engineOut, kW, kH), expected), 1);
    GLuint textures[] = {input, expectedOut, engineOut};
    glDeleteTextures(3, textures);
}
