#include "basesys/ZuGlobalMgr.h"

#include "basesys/ZuBasicSys.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuFileMgr.h"
#include "data/ZuDataMgr.h"
#include "data/ZuDetectMgr.h"
#include "data/ZuGifMgr.h"
#include "data/ZuMeshDataMgr.h"
#include "event/ZuEventMgr.h"
#include "logicsys/ZuLogicMgr.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateQueue.h"
#include "parse/ZuParseMgr.h"
#include "person/ZuPersonSys.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuPboMgr.h"
#include "render/ZuRenderMgr.h"
#include "render/shader/ZuShaderMgr.h"
#include "render/texture/ZuTexMgr.h"
#include "scene/ZuDiySys.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuSceneMgr.h"

ZuGlobalMgr::ZuGlobalMgr(ZuAppMain* app) : ZuGBase(app) {
    m_fileMgr = new ZuFileMgr(app);
    m_fileMgr->init();
}

ZuGlobalMgr::~ZuGlobalMgr() {
    destroy();
    if (m_fileMgr) m_fileMgr->destroy();
    qzSafeRelease(m_fileMgr);
}

template <class T> void ZuGlobalMgr::build(T*& slot, const char* name) {
    if (slot) return;
    slot = new T(app);
    slot->init();
    notify(name, true);
}

template <class T> void ZuGlobalMgr::construct(T*& slot, const char* name) {
    if (slot) return;
    slot = new T(app);
    notify(name, true);
}

template <class T> void ZuGlobalMgr::teardown(T*& slot, const char* name) {
    if (!slot) return;
    slot->destroy();
    slot->release();
    slot = nullptr;
    notify(name, false);
}

template <class T> void ZuGlobalMgr::releaseOnly(T*& slot, const char* name) {
    if (!slot) return;
    slot->release();
    slot = nullptr;
    notify(name, false);
}

void ZuGlobalMgr::notify(const char* name, bool built) {
    if (m_observer) m_observer(name, built);
}

void ZuGlobalMgr::setConfig(ZuConfig* config) {
    qzAssignRetained(m_config, config);
}

void ZuGlobalMgr::setOperateMgr(ZuOperateMgr* operateMgr) {
    qzAssignRetained(m_operateMgr, operateMgr);
}

void ZuGlobalMgr::init() {
    // The empty search path lets absolute file names through.
    m_fileMgr->addRespath("");

    // A config set by an integration class is kept; the file still overlays it.
    build(m_config, "ZuConfig");
    m_config->loadConfig();

    if (!m_operateMgr) {
        m_operateMgr = new ZuOperateMgr(app);
        m_operateMgr->init(true); // the load thread starts here
        notify("ZuOperateMgr", true);
    }
    construct(m_pboMgr, "ZuPboMgr");
    build(m_fboMgr, "ZuFboMgr");
    build(m_diySys, "ZuDiySys");
    build(m_eventMgr, "ZuEventMgr");
    build(m_dataMgr, "ZuDataMgr");
    build(m_parseMgr, "ZuParseMgr");
    build(m_meshDataMgr, "ZuMeshDataMgr");
    build(m_personSys, "ZuPersonSys");
    build(m_nodeMgr, "ZuNodeMgr");
    build(m_sceneMgr, "ZuSceneMgr");
    build(m_logicMgr, "ZuLogicMgr");
    build(m_shaderMgr, "ZuShaderMgr");
    build(m_texMgr, "ZuTexMgr");
    build(m_renderMgr, "ZuRenderMgr");
    construct(m_detectMgr, "ZuDetectMgr");
    build(m_operateQueue, "ZuOperateQueue");
    build(m_basicSys, "ZuBasicSys");
    build(m_gifMgr, "ZuGifMgr");
}

void ZuGlobalMgr::destroy() {
    // The load thread stops first, so nothing loads during the rest.
    teardown(m_operateMgr, "ZuOperateMgr");
    teardown(m_diySys, "ZuDiySys");
    teardown(m_detectMgr, "ZuDetectMgr");
    teardown(m_nodeMgr, "ZuNodeMgr");
    teardown(m_sceneMgr, "ZuSceneMgr");
    teardown(m_logicMgr, "ZuLogicMgr");
    teardown(m_renderMgr, "ZuRenderMgr");
    teardown(m_texMgr, "ZuTexMgr");
    teardown(m_gifMgr, "ZuGifMgr");
    teardown(m_shaderMgr, "ZuShaderMgr");
    teardown(m_personSys, "ZuPersonSys");
    teardown(m_parseMgr, "ZuParseMgr");
    releaseOnly(m_pboMgr, "ZuPboMgr");
    releaseOnly(m_fboMgr, "ZuFboMgr");
    teardown(m_dataMgr, "ZuDataMgr");
    teardown(m_operateQueue, "ZuOperateQueue");
    teardown(m_eventMgr, "ZuEventMgr");
    teardown(m_config, "ZuConfig");
    releaseOnly(m_meshDataMgr, "ZuMeshDataMgr"); // its destructor frees the records
    releaseOnly(m_basicSys, "ZuBasicSys");
}

void ZuGlobalMgr::update(float delta) {
    if (m_operateQueue) m_operateQueue->update(delta);
    if (m_operateMgr) m_operateMgr->update(delta);
    if (m_dataMgr) m_dataMgr->update(delta);
    if (m_eventMgr) m_eventMgr->update(delta);
    if (m_personSys) m_personSys->update(delta);
    if (m_logicMgr) m_logicMgr->update(delta);
    if (m_sceneMgr) m_sceneMgr->update(delta);
    if (m_texMgr) m_texMgr->removeUnuseTexture();
    if (m_fboMgr) m_fboMgr->update(delta);
    if (m_gifMgr) m_gifMgr->update(delta);
}

void ZuGlobalMgr::renderScene(const char* sceneName) {
    if (m_renderMgr) m_renderMgr->renderScene(sceneName ? sceneName : "");
}
