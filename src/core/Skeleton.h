#pragma once

#include "core/Bone.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

class Animation;
class AnimationStateSet;

// A bone hierarchy with its bone animations, read from a skeleton file.
// Bones are owned; the handle array may have empty slots (bones 0, 1, 5 give
// six), and of two bones of one name the later one is found by name.
class Skeleton {
public:
    explicit Skeleton(const std::string& fileName = "");
    virtual ~Skeleton();
    Skeleton(const Skeleton&) = delete;
    Skeleton& operator=(const Skeleton&) = delete;

    virtual Bone* createBone(const std::string& name, uint16_t handle);

    // Reads the file named at construction; false (logged) when it can't.
    bool load();

    Bone* getBone(uint16_t handle) const;
    Bone* getBone(const std::string& name) const;
    // Slots of the handle array, empty ones included.
    size_t getNumBones() const { return bonesByHandle.size(); }
    Bone* getRootBone();
    const std::vector<Bone*>& getRootBones();

    Animation* createAnimation(const std::string& name, float length);
    Animation* _getAnimationImpl(const std::string& name) const;
    const std::map<std::string, std::unique_ptr<Animation>>& getAnimations() const { return animations; }

    void setBindingPose();
    void reset(bool resetManualBones = false);
    void _updateTransforms();
    // One state per animation: time 0, its length, weight 1, disabled.
    void _initAnimationState(AnimationStateSet* set);
    // Resets the bones and applies every enabled state of one of its animations.
    void setAnimationState(const AnimationStateSet& set);
    // Offset transforms of all bones in handle order (identity for empty slots).
    void _getBoneMatrices(ZuMatrix4* out);

    const std::string& getFileName() const { return fileName; }
    const std::string& getVersion() const { return version; }
    void setVersion(const std::string& v) { version = v; }

private:
    void deriveRootBone();

    std::string fileName;
    std::string version = "[Unknown]";
    std::vector<Bone*> rootBones;
    std::map<std::string, Bone*> bonesByName;
    std::vector<Bone*> bonesByHandle;
    std::vector<std::unique_ptr<Bone>> owned;
    std::set<Bone*> manualBones;
    std::map<std::string, std::unique_ptr<Animation>> animations;
};
