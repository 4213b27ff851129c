#pragma once

#include "core/Serializer.h"

class Animation;
class Skeleton;

// Reads skeleton files: bones, the hierarchy and bone animations.
class SkeletonSerializer : public Serializer {
public:
    enum SkeletonVersion { SKELETON_VERSION_1_0 = 0, SKELETON_VERSION_LATEST = 1 };

    SkeletonSerializer();
    void readFileHeader(DataStream& stream) override;
    // False (logged, the skeleton to be thrown away) on a broken file.
    bool importSkeleton(DataStream& stream, Skeleton* skeleton);

    static constexpr uint32_t calcBoneSizeWithoutScale() { return 36; }
    static constexpr uint32_t calcKeyFrameSizeWithoutScale() { return 38; }
    static constexpr uint32_t calcBoneParentSize() { return 10; }
    static constexpr int kMaxDepth = 256;

private:
    void readBone(DataStream& stream, Skeleton* skeleton);
    void readBoneParent(DataStream& stream, Skeleton* skeleton);
    void readAnimation(DataStream& stream, Skeleton* skeleton);
    void readAnimationTrack(DataStream& stream, Animation* animation, Skeleton* skeleton);
    void readKeyFrame(DataStream& stream, class NodeAnimationTrack* track);
};
