#include "logicsys/Animate2D/ZuSpine.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuCheck.h"
#include "basesys/ZuGlobalMgr.h"
#include "logicsys/Animate2D/SkeDataPack.h"
#include "logicsys/Animate2D/ZuSkeletonPool.h"
#include "parse/ZuParseMgr.h"
#include "platform/ZuLog.h"
#include "spine/spRuntime.h"

namespace {

void stateListener(spAnimationState* state, int track, spEventType type, spEvent* event, int loopCount) {
    if (ZuSpine* spine = static_cast<ZuSpine*>(state->rendererObject))
        spine->onAnimationStateEvent(track, type, event, loopCount);
}

ZuTexture* pageTexture(void* region) {
    spAtlasRegion* atlasRegion = static_cast<spAtlasRegion*>(region);
    if (!atlasRegion || !atlasRegion->page) return nullptr;
    return static_cast<ZuTexture*>(atlasRegion->page->rendererObject);
}

} // namespace

ZuSpine::~ZuSpine() {
    if (state) spAnimationState_dispose(state);
    if (stateData && ownsStateData) spAnimationStateData_dispose(stateData);
    if (skeleton) spSkeleton_dispose(skeleton);
    state = nullptr;
    stateData = nullptr;
    skeleton = nullptr;
    qzSafeRelease(pack);
}

ZuSpine* ZuSpine::createSpine(ZuAppMain* app, const char* scene, const char* jsonPath, const char* atlasPath,
                              float scale) {
    ZuParseMgr* parser = ZuGBase::parseMgrOf(app);
    QZ_REQUIRE_OR(parser != nullptr, nullptr, "no engine for skeleton %s", jsonPath ? jsonPath : "");
    SkeDataPack* pack = parser->getSkeletonPool().getSkeleton(app, scene, jsonPath, atlasPath, scale);
    if (!pack) return nullptr;
    ZuSpine* spine = new ZuSpine(app);
    const bool ok = spine->init(pack);
    pack->release();
    if (!ok) qzSafeRelease(spine);
    return spine;
}

bool ZuSpine::init(SkeDataPack* value) {
    if (!value || !value->getData() || skeleton) return false;
    qzAssignRetained(pack, value);
    skeleton = spSkeleton_create(pack->getData());
    rootBone = skeleton->bonesCount > 0 ? skeleton->bones[0] : nullptr;
    premultipliedAlpha = true;
    stateData = spAnimationStateData_create(pack->getData());
    ownsStateData = true;
    state = spAnimationState_create(stateData);
    state->rendererObject = this;
    state->listener = stateListener;
    spSkeleton_setToSetupPose(skeleton);
    spSkeleton_updateWorldTransform(skeleton);
    return true;
}

spAtlas* ZuSpine::getAtlas() const { return pack ? pack->getAtlas() : nullptr; }

void ZuSpine::onAnimationStateEvent(int track, int type, spEvent* event, int loopCount) {
    if (!listener) return;
    switch (type) {
    case SP_ANIMATION_START: listener->onSpineStart(track); break;
    case SP_ANIMATION_END: listener->onSpineEnd(track); break;
    case SP_ANIMATION_COMPLETE: listener->onSpineComplete(track, loopCount); break;
    case SP_ANIMATION_EVENT: listener->onSpineEvent(track, event); break;
    default: break;
    }
}

void ZuSpine::update(float seconds) {
    if (!skeleton || !state) return;
    seconds *= timeScale;
    spSkeleton_update(skeleton, seconds);
    spAnimationState_update(state, seconds);
    spAnimationState_apply(state, skeleton);
}

void ZuSpine::updateBone(float) { updateWorldTransform(); }

void ZuSpine::updateWorldTransform() {
    if (skeleton) spSkeleton_updateWorldTransform(skeleton);
}

void ZuSpine::setAnimationStateData(spAnimationStateData* value) {
    if (!value) {
        QZLOGW("stateData cannot be null.");
        return;
    }
    if (!skeleton) return;
    if (state) spAnimationState_dispose(state);
    if (stateData && ownsStateData) spAnimationStateData_dispose(stateData);
    stateData = value;
    ownsStateData = false;
    state = spAnimationState_create(stateData);
    state->rendererObject = this;
    state->listener = stateListener;
}

bool ZuSpine::isAnimationExistForName(const char* name) const {
    return name && pack && spSkeletonData_findAnimation(pack->getData(), name) != nullptr;
}

spTrackEntry* ZuSpine::setAnimationForTrack(int track, const char* name, bool loop) {
    if (!state || !isAnimationExistForName(name)) return nullptr;
    return spAnimationState_setAnimationByName(state, track, name, loop ? 1 : 0);
}

spTrackEntry* ZuSpine::addAnimationForTrack(int track, const char* name, bool loop, int delay) {
    if (!state || !isAnimationExistForName(name)) return nullptr;
    return spAnimationState_addAnimationByName(state, track, name, loop ? 1 : 0, static_cast<float>(delay));
}

void ZuSpine::clearTracks() {
    if (state) spAnimationState_clearTracks(state);
}

void ZuSpine::clearTrack(int track) {
    if (state) spAnimationState_clearTrack(state, track);
}

void ZuSpine::resetAnimate() {
    if (!state) return;
    spAnimationState_percent(state, 0.0f);
    // A restart is a fresh turn: with the last time left where the old turn
    // was, the next apply would take the jump back for a completed loop.
    for (int i = 0; i < state->tracksCount; ++i)
        if (spTrackEntry* entry = state->tracks[i]) entry->lastTime = -1.0f;
}

void ZuSpine::setMixFrom(const char* from, const char* to, float seconds) {
    if (stateData && isAnimationExistForName(from) && isAnimationExistForName(to))
        spAnimationStateData_setMixByName(stateData, from, to, seconds);
}

spTrackEntry* ZuSpine::getCurrentForTrack(int track) const {
    return state ? spAnimationState_getCurrent(state, track) : nullptr;
}

float ZuSpine::getAnimationDuration(const char* name) const {
    if (!name || !pack) return 0.0f;
    spAnimation* animation = spSkeletonData_findAnimation(pack->getData(), name);
    return animation ? animation->duration * 1000.0f : 0.0f;
}

ZuTexture* ZuSpine::getTextureForRegion(spRegionAttachment* attachment) {
    return attachment ? pageTexture(attachment->rendererObject) : nullptr;
}

ZuTexture* ZuSpine::getTextureForMesh(spMeshAttachment* attachment) {
    return attachment ? pageTexture(attachment->rendererObject) : nullptr;
}

ZuTexture* ZuSpine::getTextureForAttachment(spAttachment* attachment) {
    if (!attachment) return nullptr;
    if (attachment->type == SP_ATTACHMENT_REGION)
        return getTextureForRegion(reinterpret_cast<spRegionAttachment*>(attachment));
    if (attachment->type == SP_ATTACHMENT_MESH || attachment->type == SP_ATTACHMENT_LINKED_MESH)
        return getTextureForMesh(reinterpret_cast<spMeshAttachment*>(attachment));
    return nullptr;
}

void ZuSpine::setToSetupPose() {
    if (skeleton) spSkeleton_setToSetupPose(skeleton);
}
void ZuSpine::setBonesToSetupPose() {
    if (skeleton) spSkeleton_setBonesToSetupPose(skeleton);
}
void ZuSpine::setSlotsToSetupPose() {
    if (skeleton) spSkeleton_setSlotsToSetupPose(skeleton);
}
spBone* ZuSpine::findBone(const char* name) const {
    return skeleton && name ? spSkeleton_findBone(skeleton, name) : nullptr;
}
spSlot* ZuSpine::findSlot(const char* name) const {
    return skeleton && name ? spSkeleton_findSlot(skeleton, name) : nullptr;
}
bool ZuSpine::setSkin(const char* name) { return skeleton && spSkeleton_setSkinByName(skeleton, name) != 0; }
spAttachment* ZuSpine::getAttachment(const char* slot, const char* name) const {
    return skeleton && slot && name ? spSkeleton_getAttachmentForSlotName(skeleton, slot, name) : nullptr;
}
bool ZuSpine::setAttachment(const char* slot, const char* name) {
    return skeleton && slot && spSkeleton_setAttachment(skeleton, slot, name) != 0;
}

