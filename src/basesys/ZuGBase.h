#pragma once

#include "basesys/ZuRefObject.h"

class ZuAppMain;
class ZuGlobalMgr;
class ZuFileMgr;
class ZuConfig;
class ZuOperateMgr;
class ZuEventMgr;
class ZuDataMgr;
class ZuPboMgr;
class ZuFboMgr;
class ZuTexMgr;
class ZuShaderMgr;
class ZuNodeMgr;
class ZuRenderMgr;
class ZuSceneMgr;
class ZuParseMgr;
class ZuLogicMgr;
class ZuOperateQueue;
class ZuDetectMgr;
class ZuMeshDataMgr;
class ZuPersonSys;

// Base of every object that belongs to one engine. There are no process-wide
// singletons: everything reaches the other managers through its app pointer,
// so several engines can live in one process.
class ZuGBase : public ZuRefObject {
public:
    explicit ZuGBase(ZuAppMain* app) : app(app) {}
    ~ZuGBase() override { app = nullptr; }

    ZuAppMain* getApp() const { return app; }

    // Checked ways to the engine's managers: null when there is no engine,
    // it has no managers (before initZuBase, after destroyZuBase), or that
    // manager is gone, so callers test one pointer instead of a chain. The
    // static forms serve classes that hold an app without deriving from here.
    static ZuGlobalMgr* managersOf(const ZuAppMain* app);
    static ZuFileMgr* fileMgrOf(const ZuAppMain* app);
    static ZuConfig* configOf(const ZuAppMain* app);
    static ZuOperateMgr* operateMgrOf(const ZuAppMain* app);
    static ZuEventMgr* eventMgrOf(const ZuAppMain* app);
    static ZuDataMgr* dataMgrOf(const ZuAppMain* app);
    static ZuPboMgr* pboMgrOf(const ZuAppMain* app);
    static ZuFboMgr* fboMgrOf(const ZuAppMain* app);
    static ZuTexMgr* texMgrOf(const ZuAppMain* app);
    static ZuShaderMgr* shaderMgrOf(const ZuAppMain* app);
    static ZuNodeMgr* nodeMgrOf(const ZuAppMain* app);
    static ZuRenderMgr* renderMgrOf(const ZuAppMain* app);
    static ZuSceneMgr* sceneMgrOf(const ZuAppMain* app);
    static ZuParseMgr* parseMgrOf(const ZuAppMain* app);
    static ZuLogicMgr* logicMgrOf(const ZuAppMain* app);
    static ZuOperateQueue* operateQueueOf(const ZuAppMain* app);
    static ZuDetectMgr* detectMgrOf(const ZuAppMain* app);
    static ZuMeshDataMgr* meshDataMgrOf(const ZuAppMain* app);
    static ZuPersonSys* personSysOf(const ZuAppMain* app);

    ZuGlobalMgr* managers() const { return managersOf(app); }
    ZuFileMgr* fileMgr() const { return fileMgrOf(app); }
    ZuConfig* config() const { return configOf(app); }
    ZuOperateMgr* operateMgr() const { return operateMgrOf(app); }
    ZuEventMgr* eventMgr() const { return eventMgrOf(app); }
    ZuDataMgr* dataMgr() const { return dataMgrOf(app); }
    ZuPboMgr* pboMgr() const { return pboMgrOf(app); }
    ZuFboMgr* fboMgr() const { return fboMgrOf(app); }
    ZuTexMgr* texMgr() const { return texMgrOf(app); }
    ZuShaderMgr* shaderMgr() const { return shaderMgrOf(app); }
    ZuNodeMgr* nodeMgr() const { return nodeMgrOf(app); }
    ZuRenderMgr* renderMgr() const { return renderMgrOf(app); }
    ZuSceneMgr* sceneMgr() const { return sceneMgrOf(app); }
    ZuParseMgr* parseMgr() const { return parseMgrOf(app); }
    ZuLogicMgr* logicMgr() const { return logicMgrOf(app); }
    ZuOperateQueue* operateQueue() const { return operateQueueOf(app); }
    ZuDetectMgr* detectMgr() const { return detectMgrOf(app); }
    ZuMeshDataMgr* meshDataMgr() const { return meshDataMgrOf(app); }
    ZuPersonSys* personSys() const { return personSysOf(app); }

protected:
    ZuAppMain* app;
};
