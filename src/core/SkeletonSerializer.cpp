#include "core/SkeletonSerializer.h"

#include "core/Animation.h"
#include "core/NodeAnimationTrack.h"
#include "core/Skeleton.h"
#include "core/TransformKeyFrame.h"

namespace {
enum : uint16_t {
    SKELETON_BLENDMODE = 0x1010,
    SKELETON_BONE = 0x2000,
    SKELETON_BONE_PARENT = 0x3000,
    SKELETON_ANIMATION = 0x4000,
    SKELETON_ANIMATION_TRACK = 0x4100,
    SKELETON_ANIMATION_TRACK_KEYFRAME = 0x4110,
};
} // namespace

SkeletonSerializer::SkeletonSerializer() {
    version = "[Unknown]";
    kind = "skeleton";
}

void SkeletonSerializer::readFileHeader(DataStream& stream) {
    uint16_t id = 0;
    if (!readShorts(stream, &id, 1)) return;
    if (id != kHeaderId) {
        refuse(stream, "no file header");
        return;
    }
    // Whatever the version says, it is kept and reading goes on.
    version = readString(stream);
}

bool SkeletonSerializer::importSkeleton(DataStream& stream, Skeleton* skeleton) {
    if (!skeleton) return false;
    determineEndianness(stream);
    readFileHeader(stream);
    skeleton->setVersion(version);
    while (!broken && remaining(stream) > 0) {
        uint16_t id = readChunk(stream);
        if (broken) break;
        switch (id) {
        case SKELETON_BLENDMODE: {
            uint16_t mode = 0;
            readShorts(stream, &mode, 1);
            break;
        }
        case SKELETON_BONE: readBone(stream, skeleton); break;
        case SKELETON_BONE_PARENT: readBoneParent(stream, skeleton); break;
        case SKELETON_ANIMATION: readAnimation(stream, skeleton); break;
        default: break; // only the header is consumed
        }
    }
    if (broken) return false;
    // Bones update their parents' chains recursively: a hierarchy deeper
    // than any character needs is refused rather than risked.
    for (size_t h = 0; h < skeleton->getNumBones(); ++h) {
        int depth = 0;
        for (Bone* up = skeleton->getBone(static_cast<uint16_t>(h)); up; up = up->getParent()) {
            if (++depth > kMaxDepth) {
                refuse(stream, "bone hierarchy deeper than 256");
                return false;
            }
        }
    }
    skeleton->setBindingPose();
    return true;
}

void SkeletonSerializer::readBone(DataStream& stream, Skeleton* skeleton) {
    uint32_t length = currentChunkLength;
    std::string name = readString(stream);
    uint16_t handle = 0;
    ZuVec3 position;
    ZuQuaternion orientation;
    if (!readShorts(stream, &handle, 1) || !readObject(stream, position) || !readObject(stream, orientation))
        return;
    Bone* bone = skeleton->createBone(name, handle);
    bone->setPosition(position);
    bone->setOrientation(orientation);
    if (length > calcBoneSizeWithoutScale()) {
        ZuVec3 scale;
        if (!readObject(stream, scale)) return;
        bone->setScale(scale);
    }
}

void SkeletonSerializer::readBoneParent(DataStream& stream, Skeleton* skeleton) {
    uint16_t handles[2] = {0, 0};
    if (!readShorts(stream, handles, 2)) return;
    Bone* child = skeleton->getBone(handles[0]);
    Bone* parent = skeleton->getBone(handles[1]);
    if (!child || !parent || child == parent) {
        refuse(stream, "a bone parent names no bone");
        return;
    }
    // A parent that is already a descendant would make a loop.
    for (Bone* up = parent; up; up = up->getParent()) {
        if (up == child) {
            refuse(stream, "bone parents form a loop");
            return;
        }
    }
    parent->addChild(child);
}

void SkeletonSerializer::readAnimation(DataStream& stream, Skeleton* skeleton) {
    std::string name = readString(stream);
    float length = 0.0f;
    if (!readFloats(stream, &length, 1)) return;
    Animation* animation = skeleton->createAnimation(name, length);
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id != SKELETON_ANIMATION_TRACK) {
            backToChunkStart(stream);
            break;
        }
        readAnimationTrack(stream, animation, skeleton);
    }
}

void SkeletonSerializer::readAnimationTrack(DataStream& stream, Animation* animation, Skeleton* skeleton) {
    uint16_t handle = 0;
    if (!readShorts(stream, &handle, 1)) return;
    Bone* bone = skeleton->getBone(handle);
    if (!bone) {
        refuse(stream, "a track names no bone");
        return;
    }
    NodeAnimationTrack* track = animation->createNodeTrack(handle, bone);
    while (uint16_t id = peekLevelChunk(stream)) {
        if (id != SKELETON_ANIMATION_TRACK_KEYFRAME) {
            backToChunkStart(stream);
            break;
        }
        readKeyFrame(stream, track);
    }
}

void SkeletonSerializer::readKeyFrame(DataStream& stream, NodeAnimationTrack* track) {
    uint32_t length = currentChunkLength;
    float time = 0.0f;
    ZuQuaternion rotation;
    ZuVec3 translation;
    if (!readFloats(stream, &time, 1) || !readObject(stream, rotation) || !readObject(stream, translation))
        return;
    TransformKeyFrame* frame = track->createNodeKeyFrame(time);
    frame->setRotation(rotation);
    frame->setTranslate(translation);
    if (length > calcKeyFrameSizeWithoutScale()) {
        ZuVec3 scale;
        if (!readObject(stream, scale)) return;
        frame->setScale(scale);
    }
}
