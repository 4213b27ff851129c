#include "basesys/ZuAppMain.h"

#include "basesys/ZuAppNative.h"
#include "basesys/ZuCheck.h"
#include "basesys/ZuLiveObjects.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"

#include <sys/time.h>

namespace {

ZuAppMain::WallTime systemClock() {
    timeval now{};
    gettimeofday(&now, nullptr);
    return {static_cast<int64_t>(now.tv_sec), static_cast<int64_t>(now.tv_usec)};
}

} // namespace

ZuAppMain::ZuAppMain() : clock(systemClock), liveObjects(new ZuLiveObjects()) {}

ZuAppMain::~ZuAppMain() {
    // A host that skipped the stop sequence still gets its managers torn down.
    if (globalMgr && state != ZU_ENG_STATE_STOPPED) {
        state = ZU_ENG_STATE_STOPPING;
        destroyZuBase();
    }
    destroy();
    qzSafeRelease(liveObjects);
}

void ZuAppMain::init() {
    if (globalMgr) return;
    appInter = new ZuAppNative(this);
    globalMgr = new ZuGlobalMgr(this);
    globalParam = new ZuGlobalParam(this);
}

void ZuAppMain::destroy() {
    state = ZU_ENG_STATE_STOPPED;
    delete appInter;
    appInter = nullptr;
    qzSafeRelease(globalMgr);
    qzSafeRelease(globalParam);
}

void ZuAppMain::initZuBase() {
    if (!globalMgr || state == ZU_ENG_STATE_RUNNING) return;
    globalMgr->init();
    state = ZU_ENG_STATE_RUNNING;
}

void ZuAppMain::destroyZuBase() {
    if (!globalMgr || state != ZU_ENG_STATE_STOPPING) return;
    globalMgr->destroy();
    if (globalParam) globalParam->clear();
    state = ZU_ENG_STATE_STOPPED;
    reportLiveObjects();
}

void ZuAppMain::reportLiveObjects() const {
    using Kind = ZuLiveObjects::Kind;
    const Kind kinds[] = {Kind::Texture, Kind::Material, Kind::Framebuffer};
    for (Kind kind : kinds) {
        int left = liveObjects->alive(kind);
        QZ_INVARIANT(left == 0, "%d %s(s) still alive after the engine stopped", left, ZuLiveObjects::nameOf(kind));
    }
}

void ZuAppMain::setState(const char* who, ZU_ENG_STATE newState) { state = newState; }

void ZuAppMain::addRespath(const char* path) {
    if (globalMgr && globalMgr->getFileMgr()) globalMgr->getFileMgr()->addRespath(path);
}

void ZuAppMain::setClock(Clock newClock) {
    clock = newClock ? std::move(newClock) : Clock(systemClock);
    // Times of two clocks do not compare: the next frame starts afresh.
    firstGetDert = true;
}

float ZuAppMain::_getDert() {
    if (firstGetDert.exchange(false)) {
        lastTime = clock();
        return 0.033f;
    }
    WallTime now = clock();
    float delta = static_cast<float>(now.seconds - lastTime.seconds) * 1000.0f +
                  static_cast<float>(now.micros - lastTime.micros) * 0.001f;
    lastTime = now;
    return delta > 0.0f ? delta : 0.0f; // a clock set back does not run time backwards
}

void ZuAppMain::update() {
    if (state != ZU_ENG_STATE_RUNNING || !globalMgr) return;
    globalMgr->update(_getDert());
}

void ZuAppMain::updateEffectRes() {
    if (state != ZU_ENG_STATE_RUNNING || !globalMgr) return;
    globalMgr->updateEffectRes(0.0f);
}

void ZuAppMain::directrender(const char* sceneName) {
    if (state != ZU_ENG_STATE_RUNNING || !globalMgr) return;
    globalMgr->renderScene(sceneName ? sceneName : "");
}
