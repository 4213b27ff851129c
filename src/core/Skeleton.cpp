#include "core/Skeleton.h"

#include "core/Animation.h"
#include "core/AnimationStateSet.h"
#include "core/Serializer.h"
#include "core/SkeletonSerializer.h"
#include "platform/ZuLog.h"

Skeleton::Skeleton(const std::string& fileName) : fileName(fileName) {}

Skeleton::~Skeleton() = default;

Bone* Skeleton::createBone(const std::string& name, uint16_t handle) {
    owned.emplace_back(new Bone(name, handle, this));
    Bone* bone = owned.back().get();
    if (bonesByHandle.size() <= handle) bonesByHandle.resize(static_cast<size_t>(handle) + 1, nullptr);
    bonesByHandle[handle] = bone;
    bonesByName[name] = bone;
    rootBones.clear();
    return bone;
}

bool Skeleton::load() {
    DataStreamPtr stream = Serializer::openFile(fileName);
    if (!stream) {
        QZLOGW("skeleton file %s can't be opened", fileName.c_str());
        return false;
    }
    SkeletonSerializer reader;
    return reader.importSkeleton(*stream, this);
}

Bone* Skeleton::getBone(uint16_t handle) const {
    return handle < bonesByHandle.size() ? bonesByHandle[handle] : nullptr;
}

Bone* Skeleton::getBone(const std::string& name) const {
    auto it = bonesByName.find(name);
    return it == bonesByName.end() ? nullptr : it->second;
}

void Skeleton::deriveRootBone() {
    rootBones.clear();
    for (Bone* bone : bonesByHandle)
        if (bone && !bone->getParent()) rootBones.push_back(bone);
}

const std::vector<Bone*>& Skeleton::getRootBones() {
    if (rootBones.empty()) deriveRootBone();
    return rootBones;
}

Bone* Skeleton::getRootBone() {
    const std::vector<Bone*>& roots = getRootBones();
    return roots.empty() ? nullptr : roots.front();
}

Animation* Skeleton::createAnimation(const std::string& name, float length) {
    std::unique_ptr<Animation>& slot = animations[name];
    slot.reset(new Animation(name, length));
    return slot.get();
}

Animation* Skeleton::_getAnimationImpl(const std::string& name) const {
    auto it = animations.find(name);
    return it == animations.end() ? nullptr : it->second.get();
}

void Skeleton::_updateTransforms() {
    for (Bone* root : getRootBones()) root->_update(true, false);
}

void Skeleton::setBindingPose() {
    _updateTransforms();
    for (Bone* bone : bonesByHandle)
        if (bone) bone->setBindingPose();
}

void Skeleton::reset(bool resetManualBones) {
    for (Bone* bone : bonesByHandle)
        if (bone && (resetManualBones || !bone->isManuallyControlled())) bone->reset();
}

void Skeleton::_initAnimationState(AnimationStateSet* set) {
    if (!set) return;
    set->removeAllAnimationStates();
    for (const auto& entry : animations)
        set->createAnimationState(entry.first, 0.0f, entry.second->getLength(), 1.0f, false);
}

void Skeleton::setAnimationState(const AnimationStateSet& set) {
    reset(false);
    std::vector<AnimationState*> enabled = set.getEnableAnimationStateList();
    float total = 0.0f;
    for (AnimationState* state : enabled)
        if (_getAnimationImpl(state->getAnimationName())) total += state->getWeight();
    // Weights above 1 in sum are scaled back so that blends don't overshoot.
    float factor = total > 1.0f ? 1.0f / total : 1.0f;
    for (AnimationState* state : enabled) {
        Animation* animation = _getAnimationImpl(state->getAnimationName());
        if (animation) animation->apply(this, state->getTimePosition(), state->getWeight() * factor, 1.0f);
    }
}

void Skeleton::_getBoneMatrices(ZuMatrix4* out) {
    _updateTransforms();
    for (size_t i = 0; i < bonesByHandle.size(); ++i) {
        if (bonesByHandle[i]) out[i] = bonesByHandle[i]->_getOffsetTransform();
        else out[i].makeIdentity();
    }
}
