#pragma once

#include "basesys/ZuGBase.h"

#include <functional>

class ZuFileMgr;
class ZuConfig;
class ZuOperateMgr;
class ZuEventMgr;
class ZuDataMgr;
class ZuBasicSys;
class ZuPboMgr;
class ZuFboMgr;
class ZuTexMgr;
class ZuShaderMgr;
class ZuNodeMgr;
class ZuRenderMgr;
class ZuSceneMgr;
class ZuDiySys;
class ZuParseMgr;
class ZuLogicMgr;
class ZuOperateQueue;
class ZuDetectMgr;
class ZuMeshDataMgr;
class ZuPersonSys;
class ZuGifMgr;

// Owns every manager of one engine and runs them in a fixed order: start-up
// in init, shut-down in destroy, and the frame in update. The file manager
// is built by the constructor and outlives all the others.
//
// Adding a manager: a field with its accessor, one line in init and one line
// in destroy, each at its place in the order.
class ZuGlobalMgr : public ZuGBase {
public:
    // Told each manager's class name as it is built (true) and torn down (false).
    using LifecycleObserver = std::function<void(const char* manager, bool built)>;

    explicit ZuGlobalMgr(ZuAppMain* app);
    ~ZuGlobalMgr() override;

    virtual void init();
    virtual void destroy();
    virtual void update(float delta);
    virtual void updateEffectRes(float delta) {}
    virtual void render() {}

    // Replays what the scene step recorded: one render scene by name, or all
    // of them in name order for the empty name.
    void renderScene(const char* sceneName);

    ZuFileMgr* getFileMgr() const { return m_fileMgr; }
    ZuConfig* getConfig() const { return m_config; }
    ZuOperateMgr* getOperateMgr() const { return m_operateMgr; }
    ZuEventMgr* getEventMgr() const { return m_eventMgr; }
    ZuDataMgr* getDataMgr() const { return m_dataMgr; }
    ZuBasicSys* getBasicSys() const { return m_basicSys; }
    ZuPboMgr* getPboMgr() const { return m_pboMgr; }
    ZuFboMgr* getFboMgr() const { return m_fboMgr; }
    ZuTexMgr* getTexMgr() const { return m_texMgr; }
    ZuShaderMgr* getShaderMgr() const { return m_shaderMgr; }
    ZuNodeMgr* getNodeMgr() const { return m_nodeMgr; }
    ZuRenderMgr* getRenderMgr() const { return m_renderMgr; }
    ZuSceneMgr* getSceneMgr() const { return m_sceneMgr; }
    ZuDiySys* getDiySys() const { return m_diySys; }
    ZuParseMgr* getParseMgr() const { return m_parseMgr; }
    ZuLogicMgr* getLogicMgr() const { return m_logicMgr; }
    ZuOperateQueue* getOperateQueue() const { return m_operateQueue; }
    ZuDetectMgr* getDetectMgr() const { return m_detectMgr; }
    ZuMeshDataMgr* getMeshDataMgr() const { return m_meshDataMgr; }
    ZuPersonSys* getPersonSys() const { return m_personSys; }
    ZuGifMgr* getGifMgr() const { return m_gifMgr; }

    // An integration class may set its own config (or operation manager)
    // before start-up; the global manager then keeps it and takes a reference.
    void setConfig(ZuConfig* config);
    void setOperateMgr(ZuOperateMgr* operateMgr);

    void setLifecycleObserver(LifecycleObserver observer) { m_observer = std::move(observer); }

private:
    // new T(app), then T::init().
    template <class T> void build(T*& slot, const char* name);
    // new T(app) with no init call of its own.
    template <class T> void construct(T*& slot, const char* name);
    // T::destroy(), then release.
    template <class T> void teardown(T*& slot, const char* name);
    // release only.
    template <class T> void releaseOnly(T*& slot, const char* name);
    void notify(const char* name, bool built);

    ZuFileMgr* m_fileMgr = nullptr;
    ZuConfig* m_config = nullptr;
    ZuOperateMgr* m_operateMgr = nullptr;
    ZuEventMgr* m_eventMgr = nullptr;
    ZuDataMgr* m_dataMgr = nullptr;
    ZuBasicSys* m_basicSys = nullptr;
    ZuPboMgr* m_pboMgr = nullptr;
    ZuFboMgr* m_fboMgr = nullptr;
    ZuTexMgr* m_texMgr = nullptr;
    ZuShaderMgr* m_shaderMgr = nullptr;
    ZuNodeMgr* m_nodeMgr = nullptr;
    ZuRenderMgr* m_renderMgr = nullptr;
    ZuSceneMgr* m_sceneMgr = nullptr;
    ZuDiySys* m_diySys = nullptr;
    ZuParseMgr* m_parseMgr = nullptr;
    ZuLogicMgr* m_logicMgr = nullptr;
    ZuOperateQueue* m_operateQueue = nullptr;
    ZuDetectMgr* m_detectMgr = nullptr;
    ZuMeshDataMgr* m_meshDataMgr = nullptr;
    ZuPersonSys* m_personSys = nullptr;
    ZuGifMgr* m_gifMgr = nullptr;

    LifecycleObserver m_observer;
};
