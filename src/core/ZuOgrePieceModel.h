#pragma once

#include "core/AnimationStateSet.h"
#include "core/Bone.h"
#include "core/ZuMatrix4.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

class Animation;
class ManualBoneOperator;
class Pose;
class Skeleton;
class VertexData;
class ZuAppMain;
class ZuSubMesh;
class ZuTexture;

struct ZuBox {
    ZuVec3 minimum{0.0f, 0.0f, 0.0f};
    ZuVec3 maximum{0.0f, 0.0f, 0.0f};
};

struct ZuModelColor {
    float r = 0.0f, g = 0.0f, b = 0.0f, a = 0.0f;
};

// One loaded mesh: submeshes, skeleton, poses, animations and the material
// data a node hands it. Filled once by MeshSerializer, then
// initAnimationState() prepares the bone blend buffers, the states and the
// per-pose offset buffers the animoji node adds up each tick.
class ZuOgrePieceModel {
public:
    // Where ApplyVertexAnimation writes a submesh's moved positions.
    struct PositionOutput {
        float* data;
        int strideFloats;
    };

    ZuOgrePieceModel();
    virtual ~ZuOgrePieceModel();
    ZuOgrePieceModel(const ZuOgrePieceModel&) = delete;
    ZuOgrePieceModel& operator=(const ZuOgrePieceModel&) = delete;

    virtual Animation* _getAnimationImpl(const std::string& name) const;

    // Used by the readers.
    ZuSubMesh* CreateSubMesh();
    Pose* CreatePose(uint16_t target, const std::string& name);
    Animation* CreateAnimation(const std::string& name, float length);
    void nameSubMesh(const std::string& name, uint16_t index);
    // An empty name drops the skeleton; another one loads it at once.
    // False when the skeleton file can't be read.
    bool setSkeletonName(const std::string& path);
    void setBounds(const ZuBox& box) { bounds = box; }

    void initAnimationState();

    bool hasSkeleton() const { return skeleton != nullptr; }
    Skeleton* getSkeleton() const { return skeleton.get(); }
    const std::string& getSkeletonName() const { return skeletonName; }
    const std::vector<std::unique_ptr<ZuSubMesh>>& getSubMeshList() const { return subMeshes; }
    ZuSubMesh* getSubMesh(size_t index) const;
    const std::map<std::string, uint16_t>& getSubMeshNames() const { return subMeshNames; }
    const std::vector<std::unique_ptr<Pose>>& getPoseList() const { return poses; }
    const std::map<std::string, std::unique_ptr<Animation>>& getAnimationList() const { return animations; }
    AnimationState* getAnimationState(const std::string& name) const { return stateSet.getAnimationState(name); }
    AnimationStateSet& getAnimationStateSet() { return stateSet; }
    // 0 the shared vertices (none from a file), n the data of submesh n - 1 as read.
    VertexData* getVertexDataByTrackHandle(uint16_t handle) const;
    const ZuBox& getBounds() const { return bounds; }

    // Entries of four floats (vertex index, x, y, z) of the pose of that
    // name and target; null and 0 for no such pose or an empty one.
    const float* getPoseBuffer(const std::string& name, int index) const;
    int getPoseBufferSize(const std::string& name, int index) const;

    // Poses the skeleton by the enabled states and the queued bone moves,
    // then caches one offset matrix a bone.
    void ApplySkeletonAnimation();
    // Re-clones each working vertex set and applies the enabled mesh
    // animations; moved positions also go to the outputs given by submesh.
    // False when a track refers to a pose that isn't there.
    bool ApplyVertexAnimation(const std::map<int, PositionOutput>* outputs = nullptr);
    // model x each bone matrix, into the world bone array.
    void GetWorldMatrixs(int* count, const ZuMatrix4** matrices, const ZuMatrix4& model);
    const std::vector<ZuMatrix4>& getBoneMatrices() const { return boneMatrices; }
    const std::vector<ZuMatrix4>& getBoneWorldMatrices() const { return worldBoneMatrices; }
    int getBoneCount() const { return boneCount; }

    // Queued for the next ApplySkeletonAnimation; they run newest first.
    void Yaw(const std::string& bone, float angle, Bone::TransformSpace space);
    void Pitch(const std::string& bone, float angle, Bone::TransformSpace space);
    void Roll(const std::string& bone, float angle, Bone::TransformSpace space);
    void Translate(const std::string& bone, const ZuVec3& v, Bone::TransformSpace space);
    void Scale(const std::string& bone, const ZuVec3& v, Bone::TransformSpace space);

    // Material data: textures are retained here and released with the model.
    void setTexture(const std::string& material, ZuTexture* texture);
    ZuTexture* getTexture(const std::string& material) const;
    const std::map<std::string, ZuTexture*>& getTextures() const { return textures; }
    std::map<std::string, ZuModelColor> ambientColors;
    std::map<std::string, ZuModelColor> diffuseColors;

    void setModelMeshName(const std::string& name) { modelMeshName = name; }
    const std::string& getModelMeshName() const { return modelMeshName; }

private:
    static std::string poseKey(const std::string& name, int index);

    std::vector<std::unique_ptr<ZuSubMesh>> subMeshes;
    std::vector<ZuSubMesh*> boneSubMeshes;
    std::map<std::string, uint16_t> subMeshNames;
    std::map<std::string, std::unique_ptr<Animation>> animations;
    std::vector<std::unique_ptr<Pose>> poses;
    std::map<std::string, std::vector<float>> poseBuffers;
    AnimationStateSet stateSet;
    std::string skeletonName;
    std::shared_ptr<Skeleton> skeleton;
    int boneCount = 0;
    std::vector<ZuMatrix4> boneMatrices;
    std::vector<ZuMatrix4> worldBoneMatrices;
    std::vector<std::unique_ptr<ManualBoneOperator>> pendingOperators;
    std::map<std::string, ZuTexture*> textures;
    ZuBox bounds;
    std::string modelMeshName;
};
