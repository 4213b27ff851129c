#include "HostEngine.h"
#include "FrameSource.h"

#include "PackageWatcher.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppMainAsync.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "data/ZuGifMgr.h"
#include "event/ZuEventMgr.h"
#include "parse/SpineHeadRes.h"
#include "platform/ZuHeadlessContext.h"

#include <GLES2/gl2.h>
#include <algorithm>
#include <chrono>
#include <thread>
#include <cstdio>
#include <unistd.h>

namespace {
// fetchRenderData reports nothing, so the buffer is pre-filled: a frame
// that happens to equal one fill byte cannot also equal the other.
bool fetchedInto(ZuAppNative* native, std::vector<uint8_t>& out, uint8_t fill) {
    std::fill(out.begin(), out.end(), fill);
    native->fetchRenderData(HostEngine::kSceneName, out.data());
    return std::any_of(out.begin(), out.end(), [fill](uint8_t byte) { return byte != fill; });
}
} // namespace

HostEngine::~HostEngine() { stop(); }

bool HostEngine::start(const std::string& assets, bool threaded) {
    if (threaded) {
        m_async = new ZuAppMainAsync();
        // Frames back to back: qzhost waits for each one it pushes.
        m_async->setFramePeriodUs(0);
        m_app = m_async;
        m_app->init();
        auto* hostConfig = new ZuConfig(m_app);
        hostConfig->init();
        m_app->getGlobalMgr()->setConfig(hostConfig);
        hostConfig->release();
        m_app->addRespath(assets.c_str());
        m_watcher = new PackageWatcher(m_app);
        // Started without its thread first, so that the watcher joins the
        // event manager before any frame runs there.
        m_async->syncInit();
        m_app->getGlobalMgr()->getEventMgr()->registProcer(m_watcher);
        if (!m_async->asyncInit()) return false;
        printf("GL: the engine's own off-screen context on its frame thread\n");
        return true;
    }
    ZuHeadlessContext& gl = ZuHeadlessContext::instance();
    bool es3 = gl.makeCurrent(3);
    if (!es3 && !gl.makeCurrent(2)) {
        fprintf(stderr, "qzhost: no headless GL context: %s\n", gl.error().c_str());
        return false;
    }
    printf("GL: %s (%s)\n", reinterpret_cast<const char*>(glGetString(GL_VERSION)),
           reinterpret_cast<const char*>(glGetString(GL_RENDERER)));

    m_app = new ZuAppMain();
    m_app->init();
    // As a phone host does, tell the engine its GL before the start, so
    // that the ES 3 paths (best skin quality, multisampling) are taken
    // where the context allows them. The ES 3 read-back is double-buffered
    // and hands a frame out one tick late; renderFrame() makes up for it.
    auto* hostConfig = new ZuConfig(m_app);
    hostConfig->init();
    m_es3 = es3;
    hostConfig->glversion = es3 ? 0x30000 : 0x20000;
    m_app->getGlobalMgr()->setConfig(hostConfig);
    hostConfig->release();
    m_app->addRespath(assets.c_str());
    m_app->initZuBase();

    m_watcher = new PackageWatcher(m_app);
    m_app->getGlobalMgr()->getEventMgr()->registProcer(m_watcher);
    return true;
}

void HostEngine::setupScene(int width, int height, int cameraHostFormat, int outputType) {
    // The facade has no call for the camera size: a host integration sets
    // the scene's camera record on the configuration. Photos are upright.
    Camera* camera = m_app->getGlobalMgr()->getConfig()->getCamera(kSceneName);
    camera->width = width;
    camera->height = height;
    camera->angle = 0;

    if (m_async) m_async->createOffGLContext(kSceneName, width, height);
    ZuAppNative* native = m_app->getAppInter();
    native->createLogicSceneFull(kSceneName, width, height, width, height);
    native->createBGNode(kSceneName, cameraHostFormat);
    // mirror true keeps the picture as the scene shows it.
    native->setOutSteamFormate(kSceneName, outputType, true, false);
    tick();
}

bool HostEngine::setHeads(const std::vector<std::string>& heads) {
    FrameSource decoder;
    for (const std::string& text : heads) {
        const size_t first = text.find(','), second = text.find(',', first + 1);
        Head head;
        head.skeleton = text.substr(0, first);
        head.bone = text.substr(first + 1, second - first - 1);
        if (!decoder.decodePng(text.substr(second + 1), head.rgba, &head.width, &head.height)) return false;
        m_heads.push_back(head);
    }
    return true;
}

void HostEngine::loadEffects(const std::vector<std::string>& packages, bool queued) {
    ZuAppNative* native = m_app->getAppInter();
    for (size_t i = 0; i < packages.size(); ++i) {
        int resUID = kFirstResUID + static_cast<int>(i);
        int slot = static_cast<int>(i);
        m_watcher->expect(resUID, packages[i]);
        if (i == 0 && !queued && !m_heads.empty()) {
            qz::array<SpineHeadRes> heads;
            for (Head& head : m_heads) {
                SpineHeadRes res;
                res.first = head.skeleton.c_str();
                res.second = head.bone.c_str();
                res.pixels = head.rgba.data();
                res.width = head.width;
                res.height = head.height;
                heads.push_back(res);
            }
            native->loadEffect(kSceneName, packages[i].c_str(), resUID, slot, &heads);
        } else if (queued)
            native->addEffect(kSceneName, packages[i].c_str(), resUID, slot);
        else
            native->loadEffect(kSceneName, packages[i].c_str(), resUID, slot);
        printf("%s effect '%s' (resUID %d, slot %d)\n", queued ? "queued" : "loading", packages[i].c_str(), resUID,
               slot);
    }
}

bool HostEngine::waitForEffects(bool queued, int timeoutMs) {
    const size_t expected = m_watcher->pendingCount();
    if (expected == 0) return true;
    // The queue plays its packages one after another, so only the first is due now.
    const size_t target = queued ? expected - 1 : 0;
    const int stepMs = 10;
    for (int waited = 0; waited < timeoutMs; waited += stepMs) {
        tick();
        if (m_watcher->pendingCount() <= target) return true;
        usleep(stepMs * 1000);
    }
    return false;
}

void HostEngine::setupFaces(int detectType, bool showPoints) {
    ZuAppNative* native = m_app->getAppInter();
    native->setDetectType(static_cast<DETECTTYPE>(detectType));
    if (showPoints) native->debugFacePt(kSceneName);
    tick();
}

void HostEngine::pushFaceRecord(const std::vector<uint8_t>& record) {
    m_app->getAppInter()->setDetectData(kSceneName, record.data(), static_cast<int>(record.size()));
}

void HostEngine::pushFrame(const std::vector<uint8_t>& frame) {
    m_app->getAppInter()->pushCameraData(kSceneName, frame.data(), static_cast<int>(frame.size()));
}

void HostEngine::settle(const std::vector<uint8_t>& frame, const std::vector<uint8_t>* faceRecord, int ms) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
    while (std::chrono::steady_clock::now() < until) {
        if (faceRecord) pushFaceRecord(*faceRecord);
        pushFrame(frame);
        tick();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

void HostEngine::useFrameRate(int fps) {
    if (fps <= 0) return;
    m_frameStepMicros = 1000000 / fps;
    m_app->setClock([this] {
        const int64_t now = m_clockMicros;
        return ZuAppMain::WallTime{now / 1000000, now % 1000000};
    });
    m_app->setFirstGetDert(true); // no delta across the change of clocks
}

bool HostEngine::startGif(const std::string& path, int width, int height) {
    m_app->getAppInter()->startRecordGif(kSceneName, path.c_str(), width, height);
    return gifBusy();
}

bool HostEngine::gifBusy() const {
    ZuGifMgr* gif = m_app->getGlobalMgr()->getGifMgr();
    return gif && gif->isBusy();
}

bool HostEngine::finishGif(int timeoutMs) {
    ZuGifMgr* gif = m_app->getGlobalMgr()->getGifMgr();
    if (!gif || !gif->isRecording()) return false;
    // The recording reads at the start of a tick what the last one drew.
    m_clockMicros += m_frameStepMicros;
    tick();
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (gif->pendingFrames() > 0 && std::chrono::steady_clock::now() < until)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    m_app->getAppInter()->stopRecordGif();
    while (gif->isBusy() && std::chrono::steady_clock::now() < until)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return !gif->isBusy();
}

void HostEngine::renderFrame() {
    m_clockMicros += m_frameStepMicros;
    if (m_async) {
        // A frame under way may have taken the previous picture; the next
        // one surely takes this one.
        if (!m_async->waitForFrameCount(m_async->getFrameCount() + 2, 10000))
            fprintf(stderr, "qzhost: the engine's frame thread did not draw within 10 s\n");
        return;
    }
    tick();
    // The frame just rendered is read into a pixel buffer that the next
    // tick hands out: render it once more so that fetch() returns it.
    if (m_es3) tick();
}

void HostEngine::tick() {
    if (m_async) {
        m_async->waitForFrameCount(m_async->getFrameCount() + 1, 10000);
        return;
    }
    m_app->update();
    m_app->directrender("");
}

bool HostEngine::fetch(std::vector<uint8_t>& out) {
    ZuAppNative* native = m_app->getAppInter();
    return fetchedInto(native, out, 0xA5) || fetchedInto(native, out, 0x5A);
}

int HostEngine::failedEffects() const { return m_watcher ? m_watcher->failedCount() : 0; }

void HostEngine::reportPendingEffects() const {
    if (m_watcher) m_watcher->reportPending();
}

void HostEngine::stop() {
    if (!m_app) return;
    // The threaded engine's stop ends its thread first; the event manager
    // then lets go of the watcher itself.
    if (m_async) m_async->asyncDestroy();
    if (m_watcher) {
        if (!m_async) m_app->getGlobalMgr()->getEventMgr()->unregistProcer(m_watcher);
        m_watcher->release();
        m_watcher = nullptr;
    }
    if (!m_async) {
        m_app->setState("qzhost", ZU_ENG_STATE_STOPPING);
        m_app->destroyZuBase();
    }
    m_app->destroy();
    m_app->release();
    m_app = nullptr;
    m_async = nullptr;
}
