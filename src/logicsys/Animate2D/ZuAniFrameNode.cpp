#include "logicsys/Animate2D/ZuAniFrameNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "event/ZuEvent.h"
#include "logicsys/Animate2D/ZuAnimateFrame.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "person/ZuPersonTracker.h"
#include "render/ZuRenderCamera.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"

#include <GLES2/gl2.h>

namespace {
const uint16_t kQuadIndices[6] = {0, 1, 2, 2, 1, 3};
}

ZuAniFrameNode::ZuAniFrameNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuAniFrameNode");
    setRenderOrder(RS_OVERLAY);
}

void ZuAniFrameNode::zuinit() {
    listenEvent();
    setCanProcEvent(true);
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    material = new ZuMaterial(app, "animateFrame");
    // Frames are drawn with premultiplied alpha.
    material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    material->setDepthTest(false);
    // A screen quad is mirrored by a negative x scale: both windings draw.
    material->setCull(false, GL_CCW, GL_BACK);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2 | VF_TEX0);
    mesh->setVertexNum(4);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    const float zero[16] = {};
    mesh->setVertexData(zero, sizeof zero);
    mesh->setIndexData(kQuadIndices, sizeof kQuadIndices, 6);
    displayWidth = displayHeight = 512.0f;
    setPositionX(0.0f, 0.0f, 0.0f);
    setScaleX(1.0f, 1.0f, 1.0f);
}

void ZuAniFrameNode::zudestroy() {
    unlistenEvent();
    if (aniFrame) aniFrame->destroy();
    qzSafeRelease(aniFrame);
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    triggers.clearAll();
    ZuNode::zudestroy();
}

void ZuAniFrameNode::setAinFrame(ZuAnimateFrame* animate) {
    if (animate == aniFrame) return;
    if (animate) animate->retain();
    if (aniFrame) aniFrame->destroy();
    qzSafeRelease(aniFrame);
    aniFrame = animate;
}

bool ZuAniFrameNode::isReady() { return aniFrame && aniFrame->getBeLoadFinish(); }

// An event on both lists restarts the animation and then stops it.
bool ZuAniFrameNode::procEvent(ZuEvent* event) {
    if (!event) return true;
    if (playState != STATE_PLAYING && triggers.isInStartEventListOfPackage(event, m_resUID)) play();
    if (playState != STATE_STOPPED) {
        const qz::list<ZuEvent*>& stops = triggers.getStopList();
        for (auto it = stops.begin(); it != stops.end(); ++it) {
            if ((*it)->isEqual(event)) {
                stop();
                break;
            }
        }
    }
    return true;
}

void ZuAniFrameNode::play() {
    setVisible(true);
    playState = STATE_PLAYING;
    if (!aniFrame) return;
    aniFrame->setLoop(loop);
    aniFrame->play();
}

void ZuAniFrameNode::pause() {
    playState = STATE_PAUSED;
    if (aniFrame) aniFrame->pause();
}

void ZuAniFrameNode::stop() {
    setVisible(false);
    if (aniFrame) aniFrame->stop();
    playState = STATE_STOPPED;
}

void ZuAniFrameNode::complete() {
    if (aniFrame) aniFrame->complete();
}

void ZuAniFrameNode::reset() {
    if (aniFrame) aniFrame->reset();
}

ZuPerson* ZuAniFrameNode::findPerson() const {
    ZuPersonSys* persons = personSys();
    return persons ? persons->getPerson(m_sceneName.c_str(), m_personID) : nullptr;
}

bool ZuAniFrameNode::personExists() const {
    ZuPerson* person = findPerson();
    return person && person->getExist();
}

void ZuAniFrameNode::update(float delta) {
    ZuRenderObject* object = getRenderObject();
    if (!material || !mesh || !object) return;
    innerUpdate(delta * 0.001f);
    refreshPosition();
    ZuNode::update(delta);
    material->setModelMatrix(getAbsoluteMat().m);
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && param->activeCamera) material->setVPMatrix(param->activeCamera->getVPMat());
    object->setMaterial(material);
    object->setMesh(mesh);
}

void ZuAniFrameNode::innerUpdate(float seconds) {
    if (!aniFrame) return;
    if (playState == STATE_PLAYING) {
        ZuPerson* person = findPerson();
        ZuPersonTracker* tracker = person ? person->getTracker() : nullptr;
        if (tracker) {
            poseCopy = tracker->faceMatrix;
            aniFrame->setStandardLen(tracker->eyeDistance);
            aniFrame->setScaleX(cfgSX);
            aniFrame->update(seconds, mesh, material, &poseCopy, posMode);
        } else {
            aniFrame->update(seconds, mesh, material, nullptr, posMode);
        }
        if (aniFrame->isStoppedThisTick()) {
            setVisible(false);
            playState = STATE_STOPPED;
        }
    }
    displayWidth = aniFrame->getSrcWidth();
    displayHeight = aniFrame->getSrcHeight();
}

void ZuAniFrameNode::refreshPosition() {
    ZuGlobalMgr* managers = app ? app->getGlobalMgr() : nullptr;
    ZuConfig* config = managers ? managers->getConfig() : nullptr;
    Camera* camera = config ? config->getCamera(m_sceneName.c_str()) : nullptr;
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    const float camW = param && param->activeCamera ? param->activeCamera->getWidth() : 0.0f;
    const float camH = param && param->activeCamera ? param->activeCamera->getHeight() : 0.0f;
    // Real size over design size, taken from the camera the scene draws
    // with: a scene's camera record may never have been given a frame.
    const float designW = config ? static_cast<float>(config->getDesignWidth()) : 0.0f;
    const float designH = config ? static_cast<float>(config->getDesignHeight()) : 0.0f;
    const float adaptX = designW > 0.0f && camW > 0.0f ? camW / designW : 1.0f;
    const float adaptY = designH > 0.0f && camH > 0.0f ? camH / designH : 1.0f;
    const float srcW = displayWidth, srcH = displayHeight;
    const float fit = srcW > 0.0f ? camW / srcW : 0.0f;

    switch (posMode) {
    case ANIPOS_FACE: {
        ZuPerson* person = findPerson();
        ZuPersonTracker* tracker = person ? person->getTracker() : nullptr;
        ZuDetectBase* detect = managers && managers->getDetectMgr() ? managers->getDetectMgr()->getDetect() : nullptr;
        if (!person || !person->getExist() || !tracker || !detect) break;
        int index = detect->transformIndex(bindIndex);
        if (index < 0 || index >= person->getFacePtNum()) index = 0;
        const float faceW = tracker->eyeDistance * cfgSX;
        float x = faceW * -cfgOffX / 2.0f;
        float y = srcW > 0.0f ? faceW * (srcH / srcW) * cfgOffY / 2.0f : 0.0f;
        if (cfgRot) ZuAnimate::turnByPose(tracker->faceMatrix, x, y);
        setPositionX(person->getFaceDataX(index) + x, person->getFaceDataY(index) + y, 0.0f);
        break;
    }
    case ANIPOS_FULLSCREEN:
    case ANIPOS_CENTERORIGIN:
        setPositionX(camW / 2.0f, camH / 2.0f, 0.0f);
        break;
    case ANIPOS_FITTOP:
        setPositionX(camW / 2.0f, camH - srcH * fit / 2.0f, 0.0f);
        break;
    case ANIPOS_FITBOTTOM:
        setPositionX(camW / 2.0f, srcH * fit / 2.0f, 0.0f);
        break;
    case ANIPOS_TOPORIGIN:
        setPositionX(camW / 2.0f, camH - srcH / 2.0f, 0.0f);
        break;
    case ANIPOS_NONE:
        setPositionX(374.0f * adaptX, 0.0f, 0.0f);
        break;
    case ANIPOS_MASK:
        break;
    }
    if (posMode == ANIPOS_FACE) {
        setScaleX(1.0f, 1.0f, 1.0f);
    } else {
        // The frame comes in mirrored unless the camera says it already is.
        const bool mirror = camera && camera->mirror;
        setScaleX(mirror ? adaptX : -adaptX, adaptY, 1.0f);
    }
}

void ZuAniFrameNode::render() {
    ZuRenderObject* object = getRenderObject();
    ZuRenderScene* scene = getActiveRenderScene();
    if (!object || !scene || playState == STATE_STOPPED || isFaceMask) return;
    if ((posMode == ANIPOS_FACE || posMode == ANIPOS_MASK) && !personExists()) return;
    object->pushCmd(scene, RS_OVERLAY, "zuAniFrame");
}
