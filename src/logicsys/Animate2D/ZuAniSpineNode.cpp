#include "logicsys/Animate2D/ZuAniSpineNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "data/ZuDetectBase.h"
#include "data/ZuDetectMgr.h"
#include "event/ZuAnimateEvent.h"
#include "event/ZuAnimateSyncPositionEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuReactEvent.h"
#include "event/ZuResetTimeStateEvent.h"
#include "node/mask/ZuHeadNode.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "person/ZuPersonTracker.h"
#include "render/ZuRenderCamera.h"
#include "render/material/ZuMaterial.h"
#include "render/material/ZuMaterialColorSelect2dSpine.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuMultMeshMatRenderObject.h"
#include "render/texture/ZuTexture.h"
#include "spine/spRuntime.h"

#include <GLES2/gl2.h>

#include <cmath>
#include <cstring>

namespace {

// x, y; r, g, b, a bytes; u, v.
const int kVertexBytes = 20;
const unsigned short kQuadTriangles[6] = {0, 1, 2, 2, 3, 0};
// Skeletons are drawn for a face whose eyes are this far apart.
const float kStandardEyeDistance = 260.0f;

uint8_t colourByte(float c) {
    if (c <= 0.0f) return 0;
    if (c >= 1.0f) return 255;
    return static_cast<uint8_t>(static_cast<int>(c * 255.0f));
}

} // namespace

ZuAniSpineNode::ZuAniSpineNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuAniSpineNode");
    setRenderOrder(16);
    defaultAni.name = "animation";
    currentAni.name = "animation";
}

void ZuAniSpineNode::zuinit() {
    ZuNode::zuinit();
    drawObject = new ZuMultMeshMatRenderObject(app);
    setRenderObject(drawObject);
    selectObject = new ZuMultMeshMatRenderObject(app);
    setSelectRenderObject(selectObject);
    listenEvent();
    setCanProcEvent(true);
}

void ZuAniSpineNode::zudestroy() {
    unlistenEvent();
    boundBones.clear();
    boundIndices.clear();
    clearSpine();
    qzSafeRelease(maskTexture);
    triggers.clearAll();
    setRenderObject(nullptr);
    setSelectRenderObject(nullptr);
    qzSafeRelease(drawObject);
    qzSafeRelease(selectObject);
    ZuNode::zudestroy();
}

void ZuAniSpineNode::clearBatches() {
    if (drawObject) drawObject->clearRenderObj();
    if (selectObject) selectObject->clearRenderObj();
    for (uint32_t i = 0; i < batches.size(); ++i) {
        MeshData* batch = batches[i];
        qzSafeRelease(batch->mesh);
        qzSafeRelease(batch->material);
        qzSafeRelease(batch->select);
        delete batch;
    }
    batches.clear();
}

void ZuAniSpineNode::clearSpine() {
    clearBatches();
    if (spine) spine->setListener(nullptr);
    qzSafeRelease(spine);
}

ZuAniSpineNode::MeshData* ZuAniSpineNode::batchFor(ZuTexture* texture) const {
    for (uint32_t i = 0; i < batches.size(); ++i)
        if (batches[i]->texture == texture) return batches[i];
    return nullptr;
}

void ZuAniSpineNode::setSpine(ZuSpine* value) {
    if (value == spine) return;
    if (value) value->retain();
    clearSpine();
    spine = value;
    if (!spine) return;
    // One batch for each page of the atlas: a clip may switch a slot to an
    // attachment on a page the set-up pose never uses.
    spAtlas* atlas = spine->getAtlas();
    for (spAtlasPage* page = atlas ? atlas->pages : nullptr; page; page = page->next) {
        ZuTexture* texture = static_cast<ZuTexture*>(page->rendererObject);
        if (!texture || batchFor(texture)) continue;
        MeshData* batch = new MeshData();
        batch->texture = texture;
        batch->mesh = new ZuRenderMesh();
        batch->mesh->setVertexType(VF_POS2 | VF_COLOR0 | VF_TEX0);
        batch->mesh->setVertexPoolType(GL_STREAM_DRAW);
        batch->mesh->setIndexPoolType(GL_STREAM_DRAW);
        batch->mesh->setVisible(false);
        batch->material = new ZuMaterial(app, maskTexture ? "spineMask" : "animateSpine");
        batch->material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
        batch->material->setDepthTest(false);
        // The screen placement mirrors by a negative scale: both windings draw.
        batch->material->setCull(false, GL_CCW, GL_BACK);
        batch->select = new ZuMaterialColorSelect2dSpine(app);
        batch->select->init();
        batch->select->setDepthTest(false);
        batch->select->setCull(false, GL_CCW, GL_BACK);
        batches.push_back(batch);
        if (drawObject) drawObject->addRenderObj(batch->mesh, batch->material);
        if (selectObject) selectObject->addRenderObj(batch->mesh, batch->select);
    }
    spine->setListener(this);
    _adapt();
}

void ZuAniSpineNode::setMaskTexture(ZuTexture* texture) {
    if (texture == maskTexture) return;
    qzAssignRetained(maskTexture, texture);
    for (uint32_t i = 0; i < batches.size(); ++i)
        batches[i]->material->AsynloadShader(app, maskTexture ? "spineMask" : "animateSpine");
}

void ZuAniSpineNode::addBindMapName(const char* boneName, int index) {
    spBone* bone = spine ? spine->findBone(boneName) : nullptr;
    if (!bone) return;
    bone->x = 0.0f;
    bone->y = 0.0f;
    bone->rotation = 0.0f;
    bone->scaleX = 1.0f;
    bone->scaleY = 1.0f;
    for (uint32_t i = 0; i < boundBones.size(); ++i)
        if (boundBones[i] == bone) {
            boundIndices[i] = index;
            return;
        }
    boundBones.push_back(bone);
    boundIndices.push_back(index);
}

void ZuAniSpineNode::setDefAnimName(const char* name, bool loopValue) {
    defaultAni.name = name ? name : "";
    defaultAni.loop = loopValue;
}

void ZuAniSpineNode::_adapt() {
    if (!isScreen) return;
    ZuGlobalMgr* managers = app ? app->getGlobalMgr() : nullptr;
    ZuConfig* config = managers ? managers->getConfig() : nullptr;
    Camera* camera = config ? config->getCamera(m_sceneName.c_str()) : nullptr;
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    const float camW = param && param->activeCamera ? param->activeCamera->getWidth() : 0.0f;
    const float camH = param && param->activeCamera ? param->activeCamera->getHeight() : 0.0f;
    const float designW = config ? static_cast<float>(config->getDesignWidth()) : 0.0f;
    const float designH = config ? static_cast<float>(config->getDesignHeight()) : 0.0f;
    const float adaptX = designW > 0.0f && camW > 0.0f ? camW / designW : 1.0f;
    const float adaptY = designH > 0.0f && camH > 0.0f ? camH / designH : 1.0f;
    if (camera && camera->mirror) {
        setPositionX(374.0f * adaptX, 0.0f, 0.0f);
        setScaleX(adaptX, adaptY, 1.0f);
    } else {
        setPositionX(346.0f * adaptX, 0.0f, 0.0f);
        setScaleX(-adaptX, adaptY, 1.0f);
    }
}

ZuPerson* ZuAniSpineNode::findPerson() const {
    ZuPersonSys* persons = personSys();
    return persons ? persons->getPerson(m_sceneName.c_str(), m_personID) : nullptr;
}

bool ZuAniSpineNode::personExists() const {
    ZuPerson* person = findPerson();
    return person && person->getExist();
}

bool ZuAniSpineNode::isReady() {
    spAtlas* atlas = spine ? spine->getAtlas() : nullptr;
    if (!atlas || !atlas->pages) return false;
    for (uint32_t i = 0; i < m_children.size(); ++i) {
        ZuHeadNode* head = dynamic_cast<ZuHeadNode*>(m_children[i]);
        if (head && !head->isReady()) return false;
    }
    for (spAtlasPage* page = atlas->pages; page; page = page->next) {
        ZuTexture* texture = static_cast<ZuTexture*>(page->rendererObject);
        if (!texture || !(texture->getbLoad() || texture->getid() > 0)) return false;
    }
    // A mask still loading would keep every batch from drawing.
    return !maskTexture || maskTexture->getbLoad() || maskTexture->getid() > 0;
}

// ---------------------------------------------------------------- playing

bool ZuAniSpineNode::play() { return play(defaultAni.name.c_str(), getAniLoopForName(defaultAni.name.c_str())); }

bool ZuAniSpineNode::play(const char* name) { return play(name, getAniLoopForName(name)); }

bool ZuAniSpineNode::play(const char* name, bool loopValue) {
    ignoreNextEnd = true;
    currentAni.name = name ? name : "";
    currentAni.loop = loopValue;
    state = STATE_PLAY_REQUESTED;
    if (!spine || !spine->setAnimationForTrack(0, currentAni.name.c_str(), loopValue)) return false;
    isStop = false;
    setVisible(true);
    sendAniEvent("aniPlay");
    return true;
}

void ZuAniSpineNode::pause() {
    state = STATE_PAUSED;
    sendAniEvent("aniPause");
}

void ZuAniSpineNode::stop() {
    // A looping sticker between a finished turn and the next one reads
    // stopped, yet is still on: that one stops too.
    if (state == STATE_STOPPED && isStop) return;
    setVisible(false);
    state = STATE_STOPPED;
    isStop = true;
    if (spine) spine->clearTrack(0);
    sendAniEvent("aniStop");
}

void ZuAniSpineNode::reset() { sendAniEvent("aniReset"); }

void ZuAniSpineNode::addAni(const char* name, bool loopValue) {
    if (spine) spine->addAnimationForTrack(0, name, loopValue, 0);
    setVisible(true);
}

void ZuAniSpineNode::complete() {
    isComplete = true;
    state = STATE_STOPPED;
    sendResetTimeStateEvent(0);
    sendAniEvent("aniComplete");
    if (!(finishAnimName == currentAni.name) && loop) {
        if (nextAni.name.empty()) return;
        if (currentAni.name == nextAni.name || currentAni.loop) return;
        const AniRef next = nextAni;
        play(next.name.c_str(), next.loop);
        return;
    }
    if (spine) spine->clearTrack(0);
    setVisible(false);
    isStop = true;
}

void ZuAniSpineNode::onSpineEnd(int) {
    if (state == STATE_STOPPED) return;
    if (ignoreNextEnd) ignoreNextEnd = false;
    else stop();
}

void ZuAniSpineNode::onSpineComplete(int, int) { complete(); }

bool ZuAniSpineNode::procEvent(ZuEvent* event) {
    if (!event) return true;
    if (state != STATE_PLAY_REQUESTED && state != STATE_PLAYING && triggers.isInStartEventList(event)) play();
    if ((state != STATE_STOPPED || !isStop) && triggers.isInStopEventList(event, m_resUID)) stop();
    ZuReactEvent* entry = triggers.isInSwitchAniEventList(event);
    if (entry && event->resUID == m_resUID && event->sceneName == m_sceneName && dynamic_cast<ZuReactEvent*>(event) &&
        !(entry->animation == currentAni.name)) {
        if (entry->loop == 0) {
            nextAni.name = entry->next;
            nextAni.loop = getAniLoopForName(entry->next.c_str());
        }
        play(entry->animation.c_str(), entry->loop == 1);
    }
    return true;
}

void ZuAniSpineNode::sendResetTimeStateEvent(int value) {
    ZuEventMgr* events = eventMgrOf(app);
    if (!events) return;
    ZuResetTimeStateEvent* event = new ZuResetTimeStateEvent(m_sceneName.c_str());
    event->state = value;
    event->animationName = aniName;
    event->resourceId = getuid();
    event->resUID = m_resUID;
    events->pushEvent(event);
}

void ZuAniSpineNode::sendAniEvent(const char* name) {
    ZuEventMgr* events = eventMgrOf(app);
    if (!events) return;
    ZuAnimateEvent* event = new ZuAnimateEvent(m_sceneName.c_str());
    event->name = name;
    event->personID = m_personID;
    event->animationName = aniName;
    event->resourceId = m_resUID;
    event->resUID = m_resUID;
    event->nodeUid = getuid();
    events->pushEventToSecondPool(event);
}

// ---------------------------------------------------------------- frame

void ZuAniSpineNode::update(float delta) {
    if (!isVisible()) return;
    if (!isScreen && (!personExists() || !getRenderObject())) {
        // No face: the sticker freezes where it was and render hides it.
        if (state == STATE_PLAYING) {
            sendResetTimeStateEvent(0);
            state = STATE_PAUSED;
        }
        return;
    }
    ZuNode::update(delta);
    if (!spine) return;
    if (state != STATE_PLAYING) {
        spine->resetAnimate();
        sendResetTimeStateEvent(1);
        state = STATE_PLAYING;
    }
    advance(animationPaused ? 0.0f : delta * 0.001f);
}

void ZuAniSpineNode::advance(float seconds) {
    spine->update(seconds);
    _updateBindBone();
    spine->updateBone(seconds);
    _updateMesh();
    if (syncPosBones.size() > 0) _syncPosition();
}

void ZuAniSpineNode::_updateBindBone() {
    if (boundBones.size() == 0) return;
    ZuPerson* person = findPerson();
    if (!person || !person->getExist()) return;
    ZuPersonTracker* tracker = person->getTracker();
    ZuGlobalMgr* managers = app ? app->getGlobalMgr() : nullptr;
    ZuDetectBase* detect = managers && managers->getDetectMgr() ? managers->getDetectMgr()->getDetect() : nullptr;
    if (!tracker || !detect) return;
    const float scale = tracker->eyeDistance / kStandardEyeDistance;
    for (uint32_t i = 0; i < boundBones.size(); ++i) {
        spBone* bone = boundBones[i];
        int index = detect->transformIndex(boundIndices[i]);
        if (index < 0 || index >= person->getFacePtNum()) index = 0;
        bone->x = person->getFaceDataX(index);
        bone->y = person->getFaceDataY(index);
        bone->scaleX = scale * bone->data->scaleX;
        bone->scaleY = scale * bone->data->scaleY;
        bone->rotation = tracker->eyeLineAngle + bone->data->rotation;
    }
}

void ZuAniSpineNode::appendVertices(MeshData* batch, const float* world, const float* uvs, int count,
                                    const unsigned short* triangles, int triangleCount, const uint8_t rgba[4]) {
    const int base = batch->vertexCount;
    // 16-bit indices: a batch that would overflow them drops the attachment.
    if (base + count > 65535) return;
    const uint32_t needBytes = static_cast<uint32_t>((base + count) * kVertexBytes);
    while (batch->vertices.size() < needBytes) batch->vertices.push_back(0);
    uint8_t* out = &batch->vertices[static_cast<uint32_t>(base * kVertexBytes)];
    for (int v = 0; v < count; ++v, out += kVertexBytes) {
        memcpy(out, &world[v * 2], 8);
        memcpy(out + 8, rgba, 4);
        memcpy(out + 12, &uvs[v * 2], 8);
    }
    const uint32_t needIndices = static_cast<uint32_t>(batch->indexCount + triangleCount);
    while (batch->indices.size() < needIndices) batch->indices.push_back(0);
    for (int t = 0; t < triangleCount; ++t) {
        const int index = triangles[t] < count ? triangles[t] : 0;
        batch->indices[static_cast<uint32_t>(batch->indexCount + t)] = static_cast<uint16_t>(base + index);
    }
    batch->vertexCount += count;
    batch->indexCount += triangleCount;
}

void ZuAniSpineNode::_updateMesh() {
    spSkeleton* skeleton = spine->getSkeleton();
    float* world = spine->getWorldVertices();
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    const float* vp = param && param->activeCamera ? param->activeCamera->getVPMat() : nullptr;
    const float* model = getAbsoluteMat().m;
    for (int i = 0; i < skeleton->slotsCount; ++i) {
        spSlot* slot = skeleton->drawOrder[i];
        spAttachment* attachment = slot->attachment;
        ZuTexture* texture = ZuSpine::getTextureForAttachment(attachment);
        MeshData* batch = texture ? batchFor(texture) : nullptr;
        if (!batch) continue;
        float r, g, b, a;
        if (attachment->type == SP_ATTACHMENT_REGION) {
            spRegionAttachment* region = reinterpret_cast<spRegionAttachment*>(attachment);
            spRegionAttachment_computeWorldVertices(region, slot->bone, world);
            r = region->r, g = region->g, b = region->b, a = region->a;
            a *= skeleton->a * slot->a;
            const uint8_t rgba[4] = {colourByte(skeleton->r * slot->r * a * r), colourByte(skeleton->g * slot->g * a * g),
                                     colourByte(skeleton->b * slot->b * a * b), colourByte(a)};
            appendVertices(batch, world, region->uvs, 4, kQuadTriangles, 6, rgba);
        } else {
            spMeshAttachment* mesh = reinterpret_cast<spMeshAttachment*>(attachment);
            const int floats = mesh->super.worldVerticesLength;
            if (floats <= 0 || floats > ZuSpine::kWorldVertexFloats || !mesh->uvs) continue;
            spMeshAttachment_computeWorldVertices(mesh, slot, world);
            r = mesh->r, g = mesh->g, b = mesh->b, a = mesh->a;
            a *= skeleton->a * slot->a;
            const uint8_t rgba[4] = {colourByte(skeleton->r * slot->r * a * r), colourByte(skeleton->g * slot->g * a * g),
                                     colourByte(skeleton->b * slot->b * a * b), colourByte(a)};
            appendVertices(batch, world, mesh->uvs, floats / 2, mesh->triangles, mesh->trianglesCount, rgba);
        }
    }
    for (uint32_t i = 0; i < batches.size(); ++i) {
        MeshData* batch = batches[i];
        batch->lastVertexCount = batch->vertexCount;
        batch->material->setModelMatrix(model);
        if (vp) batch->material->setVPMatrix(vp);
        batch->material->setTexture0(batch->texture);
        batch->material->setTexture1(maskTexture);
        batch->material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
        if (getCanSelect()) {
            batch->select->setModelMatrix(model);
            if (vp) batch->select->setVPMatrix(vp);
            batch->select->setTexture0(batch->texture);
            batch->select->setColor(static_cast<unsigned>(getuid()));
        }
        batch->mesh->setVisible(batch->vertexCount > 0);
        if (batch->vertexCount > 0) {
            batch->mesh->setVertexNum(batch->vertexCount);
            batch->mesh->setVertexData(batch->vertices.pointer(), batch->vertexCount * kVertexBytes);
            batch->mesh->setIndexData(batch->indices.pointer(), batch->indexCount * 2, batch->indexCount);
        }
        batch->vertexCount = 0;
        batch->indexCount = 0;
    }
}

void ZuAniSpineNode::_syncPosition() {
    ZuEventMgr* events = eventMgrOf(app);
    if (!events) return;
    for (uint32_t i = 0; i < syncPosBones.size(); ++i) {
        float x = 0.0f, y = 0.0f;
        if (!getHeadNodePosition(x, y, syncPosBones[i].c_str())) continue;
        ZuAnimateSyncPositionEvent* event = new ZuAnimateSyncPositionEvent(m_sceneName.c_str());
        event->first = aniName;
        event->second = syncPosBones[i];
        event->x = static_cast<float>(static_cast<int>(x));
        event->y = static_cast<float>(static_cast<int>(y));
        events->pushEventToSecondPool(event);
    }
}

void ZuAniSpineNode::render() {
    if (!isVisible()) return;
    ZuRenderScene* scene = getActiveRenderScene();
    if (!scene || !drawObject) return;
    if (!isScreen && !personExists()) return;
    drawObject->pushCmd(scene, streamType, "spinerender");
    if (getCanSelect() && selectObject) selectObject->pushCmd(scene, 3, "spine_select_render");
}

// ---------------------------------------------------------------- bones

// Skeleton space to scene pixels through this node and its parents (moved
// and scaled, as the screen placement does; nodes here are not turned).
void ZuAniSpineNode::toScene(float& x, float& y, float* scaleX, float* scaleY) const {
    float sx = 1.0f, sy = 1.0f;
    for (const ZuNode* node = this; node; node = node->getParent()) {
        x = node->getPositionX() + node->getScale().x * x;
        y = node->getPositionY() + node->getScale().y * y;
        sx *= node->getScale().x;
        sy *= node->getScale().y;
    }
    if (scaleX) *scaleX = sx;
    if (scaleY) *scaleY = sy;
}

bool ZuAniSpineNode::getHeadNodePosition(float& x, float& y, const char* boneName) const {
    spBone* bone = getHeadBone(boneName);
    if (!bone) return false;
    x = bone->worldX;
    y = bone->worldY;
    toScene(x, y, nullptr, nullptr);
    return true;
}

float ZuAniSpineNode::getSlotAlpha(const char* slotName) const {
    spSlot* slot = spine ? spine->findSlot(slotName) : nullptr;
    return slot ? slot->a : 1.0f;
}

void ZuAniSpineNode::setHeadNodeScale(const char* boneName, float& sx, float& sy) const {
    spBone* bone = getHeadBone(boneName);
    if (!bone) return;
    float x = 0.0f, y = 0.0f, nodeX = 1.0f, nodeY = 1.0f;
    toScene(x, y, &nodeX, &nodeY);
    sx *= std::fabs(spBone_getWorldScaleX(bone) * nodeX);
    sy *= std::fabs(spBone_getWorldScaleY(bone) * nodeY);
}

void ZuAniSpineNode::setHeadNodeRotatedPosition(const char* boneName, float cx, float cy, float& x, float& y) const {
    spBone* bone = getHeadBone(boneName);
    if (!bone) return;
    float px = 0.0f, py = 0.0f, nodeX = 1.0f, nodeY = 1.0f;
    toScene(px, py, &nodeX, &nodeY);
    // A mirrored node shows every turn the other way round.
    const float flip = (nodeX < 0.0f) != (nodeY < 0.0f) ? -1.0f : 1.0f;
    // The bone's own turn, so that a picture on a bone that points up along
    // its parent stands upright and sways with the bone's key frames.
    const float turn = flip * bone->rotation * 3.14159265f / 180.0f;
    const float c = std::cos(turn), s = std::sin(turn);
    const float dx = x - cx, dy = y - cy;
    x = cx + dx * c - dy * s;
    y = cy + dx * s + dy * c;
}

ZuRect ZuAniSpineNode::getBoundingBox() const {
    const float x = getPositionX(), y = getPositionY();
    return ZuRect(x - 40.0f, x + 40.0f, y + 80.0f, y);
}
