#include "basesys/ZuGBase.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"

ZuGlobalMgr* ZuGBase::managersOf(const ZuAppMain* app) { return app ? app->getGlobalMgr() : nullptr; }

ZuFileMgr* ZuGBase::fileMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getFileMgr() : nullptr;
}

ZuConfig* ZuGBase::configOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getConfig() : nullptr;
}

ZuOperateMgr* ZuGBase::operateMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getOperateMgr() : nullptr;
}

ZuEventMgr* ZuGBase::eventMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getEventMgr() : nullptr;
}

ZuDataMgr* ZuGBase::dataMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getDataMgr() : nullptr;
}

ZuPboMgr* ZuGBase::pboMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getPboMgr() : nullptr;
}

ZuFboMgr* ZuGBase::fboMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getFboMgr() : nullptr;
}

ZuTexMgr* ZuGBase::texMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getTexMgr() : nullptr;
}

ZuShaderMgr* ZuGBase::shaderMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getShaderMgr() : nullptr;
}

ZuNodeMgr* ZuGBase::nodeMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getNodeMgr() : nullptr;
}

ZuRenderMgr* ZuGBase::renderMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getRenderMgr() : nullptr;
}

ZuSceneMgr* ZuGBase::sceneMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getSceneMgr() : nullptr;
}

ZuParseMgr* ZuGBase::parseMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getParseMgr() : nullptr;
}

ZuLogicMgr* ZuGBase::logicMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getLogicMgr() : nullptr;
}

ZuOperateQueue* ZuGBase::operateQueueOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getOperateQueue() : nullptr;
}

ZuDetectMgr* ZuGBase::detectMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getDetectMgr() : nullptr;
}

ZuMeshDataMgr* ZuGBase::meshDataMgrOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getMeshDataMgr() : nullptr;
}

ZuPersonSys* ZuGBase::personSysOf(const ZuAppMain* app) {
    ZuGlobalMgr* all = managersOf(app);
    return all ? all->getPersonSys() : nullptr;
}
