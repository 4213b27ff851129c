#include "basesys/OLEngine.h"

#include "basesys/OLEngineMgr.h"
#include "platform/ZuLog.h"

#include <exception>

namespace {
template <class Call> bool guarded(const char* name, Call call) {
    try {
        return call();
    } catch (const std::exception& error) {
        QZLOGE("OLEngine::%s: %s", name, error.what());
    } catch (...) {
        QZLOGE("OLEngine::%s: unknown exception", name);
    }
    return false;
}
} // namespace

OLEngine::~OLEngine() { unInit(); }

bool OLEngine::init(JNIEnv* env, QZEngineConfig* config) {
    if (manager) return false;
    manager = new OLEngineMgr();
    if (guarded("init", [&] { return manager->init(env, config); })) return true;
    delete manager;
    manager = nullptr;
    return false;
}

bool OLEngine::pushCameraData(char* data, int size) {
    return manager && guarded("pushCameraData", [&] { return manager->pushCameraData(data, size); });
}

bool OLEngine::pushDetectData(char* data, int size) {
    return manager && guarded("pushDetectData", [&] { return manager->pushDetectData(data, size); });
}

bool OLEngine::updateEngine() {
    if (!manager) return false;
    if (!active) return true;
    return guarded("updateEngine", [&] { return manager->updateEngine(); });
}

bool OLEngine::unInit() {
    if (!manager) return false;
    bool done = guarded("unInit", [&] { return manager->unInit(); });
    delete manager;
    manager = nullptr;
    return done;
}

bool OLEngine::loadEffect(const char* path, int id) {
    return manager && guarded("loadEffect", [&] { return manager->loadEffect(path, id); });
}

bool OLEngine::clearEffect(int id) {
    return manager && guarded("clearEffect", [&] { return manager->clearEffect(id); });
}
