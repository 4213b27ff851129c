#include "basesys/ZuAppMainAsync.h"

#include "basesys/ZuAppNative.h"
#include "basesys/ZuAsyncGlobalMgr.h"
#include "basesys/ZuCheck.h"
#include "basesys/ZuGlobalParam.h"
#include "data/ZuDataMgr.h"
#include "event/ZuEventMgr.h"
#include "logicsys/ZuLogicMgr.h"
#include "node/filter/adjust_parameter.h"
#include "operate/ZuOpContextOffCreate.h"
#include "operate/ZuOpContextOffDestroy.h"
#include "operate/ZuOperateCreateNode.h"
#include "operate/ZuOperateFilterMoon.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateParse.h"
#include "person/ZuPersonSys.h"
#include "platform/ZuContext.h"
#include "render/texture/ZuTexMgr.h"
#include "scene/ZuSceneMgr.h"

#include <algorithm>
#include <chrono>

ZuAppMainAsync::~ZuAppMainAsync() {
    // A host that forgot asyncDestroy must not leave a thread running on a
    // deleted engine.
    if (thread) asyncDestroy();
}

void ZuAppMainAsync::init() {
    if (!enabled || globalMgr) return;
    appInter = new ZuAppNative(this);
    globalMgr = new ZuAsyncGlobalMgr(this);
    globalParam = new ZuGlobalParam(this);
}

void ZuAppMainAsync::stopEngine() {
    if (enabled) setState("async", ZU_ENG_STATE_STOPPING);
}

void ZuAppMainAsync::update() {
    if (state != ZU_ENG_STATE_RUNNING || !globalMgr) return;
    float delta = _getDert();
    if (auto* async = dynamic_cast<ZuAsyncGlobalMgr*>(globalMgr))
        if (async->getContext()) async->getContext()->active();
    if (auto* m = globalMgr->getOperateMgr()) m->update(delta);
    if (auto* m = globalMgr->getDataMgr()) m->update(delta);
    if (auto* m = globalMgr->getEventMgr()) m->update(delta);
    if (auto* m = globalMgr->getPersonSys()) m->update(delta);
    if (auto* m = globalMgr->getLogicMgr()) m->update(delta);
    if (auto* m = globalMgr->getSceneMgr()) m->update(delta);
    if (auto* m = globalMgr->getTexMgr()) m->removeUnuseTexture();
}

void ZuAppMainAsync::render() {
    if (state != ZU_ENG_STATE_RUNNING || !globalMgr) return;
    globalMgr->render();
    ++frameCount;
}

void ZuAppMainAsync::createOffGLContext(const char* name, int width, int height) {
    QZ_REQUIRE(state != ZU_ENG_STATE_STOPPING && globalMgr, "createOffGLContext: the engine is stopping or not made");
    QZ_REQUIRE(width > 0 && height > 0, "createOffGLContext: refused size %dx%d", width, height);
    auto* op = new ZuOpContextOffCreate(this, name, width, height);
    if (globalMgr->getOperateMgr()) globalMgr->getOperateMgr()->pushOperate(op);
    op->release();
}

void ZuAppMainAsync::destroyOffGLContext(const char* name) {
    QZ_REQUIRE(state != ZU_ENG_STATE_STOPPING && globalMgr, "destroyOffGLContext: the engine is stopping or not made");
    auto* op = new ZuOpContextOffDestroy(this, name);
    if (globalMgr->getOperateMgr()) globalMgr->getOperateMgr()->pushOperate(op);
    op->release();
}

void ZuAppMainAsync::pushCameraData(const char* name, void* data) {
    if (appInter) appInter->pushCameraData(name, data);
}

void ZuAppMainAsync::pushCameraData(const char* name, void* data, ZuDataSwap* swap) {
    if (appInter) appInter->pushCameraData(name, data, swap);
}

void ZuAppMainAsync::fetchRenderData(const char* name, void* data) {
    if (appInter) appInter->fetchRenderData(name, data);
}

void ZuAppMainAsync::fetchRenderData(const char* name, void* data, ZuDataSwap* swap) {
    if (appInter) appInter->fetchRenderData(name, data, swap);
}

void ZuAppMainAsync::createFacePointNode(const char* name) {
    QZ_REQUIRE(state != ZU_ENG_STATE_STOPPING && globalMgr && globalMgr->getOperateMgr(),
               "createFacePointNode: the engine is stopping or not started");
    auto* op = new ZuOperateCreateNode(this, "debugfacept", "ZuFacePointNode", name);
    globalMgr->getOperateMgr()->pushOperate(op);
    op->release();
}

void ZuAppMainAsync::loadEffect(const char* name, const char* path, int resUID, int slot) {
    QZ_REQUIRE(state == ZU_ENG_STATE_RUNNING && globalMgr && globalMgr->getOperateMgr(),
               "loadEffect: the engine is not running");
    QZ_REQUIRE(name && path, "loadEffect: scene or path missing");
    // Parsed at the next frame, as the facade does: in a process that ran
    // an engine before, a parse handed to the load thread was seen never to
    // report back.
    auto* op = new ZuOperateParse(this, resUID, name, path, slot);
    globalMgr->getOperateMgr()->pushOperate(op);
    op->release();
}

void ZuAppMainAsync::loadTEXTEffect(const char* name, const char*, int, int, float* values) {
    QZ_REQUIRE(state == ZU_ENG_STATE_RUNNING && globalMgr && globalMgr->getOperateMgr(),
               "loadTEXTEffect: the engine is not running");
    QZ_REQUIRE(values, "loadTEXTEffect: no filter values");
    auto* op = new ZuOperateFilterMoon(this, name, adjust_parameter::fromFloats(values));
    globalMgr->getOperateMgr()->pushOperate(op);
    op->release();
}

void ZuAppMainAsync::syncInit() {
    if (enabled) thread_startengine();
}

void ZuAppMainAsync::syncDestroy() {
    if (!enabled) return;
    setState("async", ZU_ENG_STATE_STOPPING);
    thread_stopengine();
}

void ZuAppMainAsync::syncRender() {
    if (state != ZU_ENG_STATE_RUNNING || !enabled) return;
    update();
    render();
}

bool ZuAppMainAsync::asyncInit() {
    QZ_REQUIRE_OR(!thread, false, "asyncInit: the frame thread already runs");
    QZ_REQUIRE_OR(globalMgr, false, "asyncInit: init was not called");
    thread_startengine();
    loopRunning = true;
    thread = new std::thread(&ZuAppMainAsync::asyncRender, this);
    return true;
}

void ZuAppMainAsync::asyncDestroy() {
    loopRunning = false;
    if (thread && thread->joinable()) thread->join();
    if (enabled) {
        setState("async", ZU_ENG_STATE_STOPPING);
        thread_stopengine();
    }
    delete thread;
    thread = nullptr;
}

int ZuAppMainAsync::sleepAfterFrame(int periodUs, int64_t elapsedUs) {
    if (elapsedUs <= periodUs) return static_cast<int>(periodUs - elapsedUs);
    return 1000;
}

void ZuAppMainAsync::pause(int micros) const {
    const auto until = std::chrono::steady_clock::now() + std::chrono::microseconds(micros);
    while (loopRunning) {
        auto now = std::chrono::steady_clock::now();
        if (now >= until) return;
        auto slice = std::min<std::chrono::steady_clock::duration>(until - now, std::chrono::milliseconds(5));
        std::this_thread::sleep_for(slice);
    }
}

void ZuAppMainAsync::asyncRender() {
    using Clock = std::chrono::steady_clock;
    while (loopRunning) {
        if (state != ZU_ENG_STATE_RUNNING || !enabled) {
            pause(kDefaultFramePeriodUs);
            continue;
        }
        auto begin = Clock::now();
        update();
        render();
        int64_t elapsed = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin).count();
        int rest = sleepAfterFrame(framePeriodUs, elapsed);
        // A period of 0 still yields a little: host threads take the
        // camera and read-back locks in that gap.
        pause(rest > 0 ? rest : 200);
    }
    releaseThreadContext();
}

void ZuAppMainAsync::releaseThreadContext() {
    auto* async = dynamic_cast<ZuAsyncGlobalMgr*>(globalMgr);
    if (async && async->getContext()) async->getContext()->unbind();
}

bool ZuAppMainAsync::waitForFrameCount(uint64_t count, int timeoutMs) const {
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (frameCount < count) {
        if (!loopRunning || std::chrono::steady_clock::now() >= until) return frameCount >= count;
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return true;
}
