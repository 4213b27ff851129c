#pragma once

#include "basesys/QZEngineConfig.h"

class OLEngineMgr;

// The outermost surface of the self-contained engine: each call forwards
// to the manager, and any exception stops here as a false result.
class OLEngine {
public:
    OLEngine() = default;
    ~OLEngine();
    OLEngine(const OLEngine&) = delete;
    OLEngine& operator=(const OLEngine&) = delete;

    bool init(JNIEnv* env, QZEngineConfig* config);
    bool pushCameraData(char* data, int size);
    bool pushDetectData(char* data, int size);
    // True with nothing done while inactive.
    bool updateEngine();
    bool unInit();
    bool loadEffect(const char* path, int id);
    bool clearEffect(int id);
    const char* getVersion() const { return "v2.01"; }

    void setActive(bool on) { active = on; }
    OLEngineMgr* getManager() const { return manager; }

private:
    OLEngineMgr* manager = nullptr;
    bool active = true;
};
