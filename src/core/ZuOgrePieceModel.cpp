#include "core/ZuOgrePieceModel.h"

#include "core/Animation.h"
#include "core/ManualBoneOperator_pitch.h"
#include "core/ManualBoneOperator_roll.h"
#include "core/ManualBoneOperator_scale.h"
#include "core/ManualBoneOperator_translate.h"
#include "core/ManualBoneOperator_yaw.h"
#include "core/Pose.h"
#include "core/Skeleton.h"
#include "core/VertexData.h"
#include "core/ZuSubMesh.h"
#include "render/texture/ZuTexture.h"

ZuOgrePieceModel::ZuOgrePieceModel() = default;

ZuOgrePieceModel::~ZuOgrePieceModel() {
    for (auto& entry : textures) qzSafeRelease(entry.second);
}

Animation* ZuOgrePieceModel::_getAnimationImpl(const std::string& name) const {
    auto it = animations.find(name);
    return it == animations.end() ? nullptr : it->second.get();
}

ZuSubMesh* ZuOgrePieceModel::CreateSubMesh() {
    subMeshes.emplace_back(new ZuSubMesh(this));
    return subMeshes.back().get();
}

Pose* ZuOgrePieceModel::CreatePose(uint16_t target, const std::string& name) {
    poses.emplace_back(new Pose(target, name));
    return poses.back().get();
}

Animation* ZuOgrePieceModel::CreateAnimation(const std::string& name, float length) {
    std::unique_ptr<Animation>& slot = animations[name];
    slot.reset(new Animation(name, length));
    return slot.get();
}

void ZuOgrePieceModel::nameSubMesh(const std::string& name, uint16_t index) {
    subMeshNames[name] = index;
}

bool ZuOgrePieceModel::setSkeletonName(const std::string& path) {
    if (path == skeletonName) return true;
    skeletonName = path;
    skeleton.reset();
    if (path.empty()) return true;
    auto loaded = std::make_shared<Skeleton>(path);
    if (!loaded->load()) return false;
    skeleton = loaded;
    return true;
}

ZuSubMesh* ZuOgrePieceModel::getSubMesh(size_t index) const {
    return index < subMeshes.size() ? subMeshes[index].get() : nullptr;
}

VertexData* ZuOgrePieceModel::getVertexDataByTrackHandle(uint16_t handle) const {
    if (handle == 0) return nullptr;
    ZuSubMesh* sub = getSubMesh(static_cast<size_t>(handle) - 1);
    return sub ? sub->vertexData.get() : nullptr;
}

std::string ZuOgrePieceModel::poseKey(const std::string& name, int index) {
    return name + "_index" + std::to_string(index);
}

void ZuOgrePieceModel::initAnimationState() {
    if (skeleton) {
        boneCount = static_cast<int>(skeleton->getNumBones());
        boneMatrices.assign(static_cast<size_t>(boneCount), ZuMatrix4());
        skeleton->_initAnimationState(&stateSet);
        boneSubMeshes.clear();
        for (auto& sub : subMeshes) {
            sub->_compileBoneAssignments();
            boneSubMeshes.push_back(sub.get());
        }
    }
    for (const auto& entry : animations)
        if (!stateSet.hasAnimationState(entry.first))
            stateSet.createAnimationState(entry.first, 0.0f, entry.second->getLength(), 1.0f, false);
    poseBuffers.clear();
    for (const auto& pose : poses) {
        const Pose::VertexOffsetMap& offsets = pose->getVertexOffsets();
        if (offsets.empty()) continue;
        std::vector<float>& buffer = poseBuffers[poseKey(pose->getName(), pose->getTarget())];
        buffer.clear();
        buffer.reserve(offsets.size() * 4);
        for (const auto& entry : offsets) {
            buffer.push_back(static_cast<float>(entry.first));
            buffer.push_back(entry.second.x);
            buffer.push_back(entry.second.y);
            buffer.push_back(entry.second.z);
        }
    }
}

const float* ZuOgrePieceModel::getPoseBuffer(const std::string& name, int index) const {
    auto it = poseBuffers.find(poseKey(name, index));
    return it == poseBuffers.end() ? nullptr : it->second.data();
}

int ZuOgrePieceModel::getPoseBufferSize(const std::string& name, int index) const {
    auto it = poseBuffers.find(poseKey(name, index));
    return it == poseBuffers.end() ? 0 : static_cast<int>(it->second.size() / 4);
}

void ZuOgrePieceModel::ApplySkeletonAnimation() {
    if (!skeleton) return;
    skeleton->setAnimationState(stateSet);
    for (auto it = pendingOperators.rbegin(); it != pendingOperators.rend(); ++it) (*it)->Operate(skeleton.get());
    boneMatrices.resize(static_cast<size_t>(boneCount));
    if (boneCount > 0) skeleton->_getBoneMatrices(boneMatrices.data());
    if (worldBoneMatrices.size() != boneMatrices.size()) worldBoneMatrices.assign(boneMatrices.size(), ZuMatrix4());
    pendingOperators.clear();
}

bool ZuOgrePieceModel::ApplyVertexAnimation(const std::map<int, PositionOutput>* outputs) {
    for (auto& sub : subMeshes) sub->resetWorkingData();
    std::vector<Pose*> poseList;
    for (auto& pose : poses) poseList.push_back(pose.get());
    bool sound = true;
    for (AnimationState* state : stateSet.getEnableAnimationStateList()) {
        Animation* animation = _getAnimationImpl(state->getAnimationName());
        if (!animation) continue;
        TimeIndex index = animation->_getTimeIndex(state->getTimePosition());
        for (const auto& entry : animation->getVertexTracks()) {
            ZuSubMesh* sub = getSubMesh(static_cast<size_t>(entry.first) - 1);
            if (entry.first == 0 || !sub) continue;
            PositionOutput out{nullptr, 3};
            if (outputs) {
                auto it = outputs->find(entry.first - 1);
                if (it != outputs->end()) out = it->second;
            }
            sound &= entry.second->applyToVertexData(sub->workingVertexData.get(), index, out.data,
                                                     out.strideFloats, state->getWeight(), poseList);
        }
    }
    return sound;
}

void ZuOgrePieceModel::GetWorldMatrixs(int* count, const ZuMatrix4** matrices, const ZuMatrix4& model) {
    worldBoneMatrices.resize(boneMatrices.size());
    for (size_t i = 0; i < boneMatrices.size(); ++i)
        worldBoneMatrices[i] = ZuMatrix4::concatenateAffine(model, boneMatrices[i]);
    if (count) *count = static_cast<int>(worldBoneMatrices.size());
    if (matrices) *matrices = worldBoneMatrices.data();
}

void ZuOgrePieceModel::Yaw(const std::string& bone, float angle, Bone::TransformSpace space) {
    pendingOperators.emplace_back(new ManualBoneOperator_yaw(bone, ZuVec3(angle, 0.0f, 0.0f), space));
}

void ZuOgrePieceModel::Pitch(const std::string& bone, float angle, Bone::TransformSpace space) {
    pendingOperators.emplace_back(new ManualBoneOperator_pitch(bone, ZuVec3(angle, 0.0f, 0.0f), space));
}

void ZuOgrePieceModel::Roll(const std::string& bone, float angle, Bone::TransformSpace space) {
    pendingOperators.emplace_back(new ManualBoneOperator_roll(bone, ZuVec3(angle, 0.0f, 0.0f), space));
}

void ZuOgrePieceModel::Translate(const std::string& bone, const ZuVec3& v, Bone::TransformSpace space) {
    pendingOperators.emplace_back(new ManualBoneOperator_translate(bone, v, space));
}

void ZuOgrePieceModel::Scale(const std::string& bone, const ZuVec3& v, Bone::TransformSpace space) {
    pendingOperators.emplace_back(new ManualBoneOperator_scale(bone, v, space));
}

void ZuOgrePieceModel::setTexture(const std::string& material, ZuTexture* texture) {
    qzAssignRetained(textures[material], texture);
}

ZuTexture* ZuOgrePieceModel::getTexture(const std::string& material) const {
    auto it = textures.find(material);
    return it == textures.end() ? nullptr : it->second;
}
