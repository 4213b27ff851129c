#pragma once

#include "core/NodeAnimationTrack.h"
#include "core/TimeIndex.h"
#include "core/VertexAnimationTrack.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

class Bone;
class Pose;
class Skeleton;
class VertexData;

// A named animation: bone tracks and vertex tracks by handle, and the sorted
// list of every key time, built on first use.
class Animation {
public:
    Animation(const std::string& name, float length) : name(name), length(length) {}

    const std::string& getName() const { return name; }
    float getLength() const { return length; }

    NodeAnimationTrack* createNodeTrack(uint16_t handle, Bone* bone);
    VertexAnimationTrack* createVertexTrack(uint16_t handle, VertexData* data, VertexAnimationType type);
    NodeAnimationTrack* getNodeTrack(uint16_t handle) const;
    VertexAnimationTrack* getVertexTrack(uint16_t handle) const;
    const std::map<uint16_t, std::unique_ptr<NodeAnimationTrack>>& getNodeTracks() const { return nodeTracks; }
    const std::map<uint16_t, std::unique_ptr<VertexAnimationTrack>>& getVertexTracks() const {
        return vertexTracks;
    }

    // The bones of the skeleton move by each track at the time.
    void apply(Skeleton* skeleton, float time, float weight = 1.0f, float scale = 1.0f);

    // Wraps a time past the length and finds its global key index.
    TimeIndex _getTimeIndex(float time);
    void _keyFrameListChanged() { keyFrameTimesDirty = true; }
    const std::vector<float>& getKeyFrameTimes() {
        buildKeyFrameTimeList();
        return keyFrameTimes;
    }

private:
    void buildKeyFrameTimeList();

    std::string name;
    float length;
    std::map<uint16_t, std::unique_ptr<NodeAnimationTrack>> nodeTracks;
    std::map<uint16_t, std::unique_ptr<VertexAnimationTrack>> vertexTracks;
    std::vector<float> keyFrameTimes;
    bool keyFrameTimesDirty = true;
};
