#include "core/Animation.h"

#include "core/Skeleton.h"

#include <algorithm>
#include <cmath>

NodeAnimationTrack* Animation::createNodeTrack(uint16_t handle, Bone* bone) {
    std::unique_ptr<NodeAnimationTrack>& slot = nodeTracks[handle];
    slot.reset(new NodeAnimationTrack(this, handle, bone));
    _keyFrameListChanged();
    return slot.get();
}

VertexAnimationTrack* Animation::createVertexTrack(uint16_t handle, VertexData* data, VertexAnimationType type) {
    std::unique_ptr<VertexAnimationTrack>& slot = vertexTracks[handle];
    slot.reset(new VertexAnimationTrack(this, handle, data, type));
    _keyFrameListChanged();
    return slot.get();
}

NodeAnimationTrack* Animation::getNodeTrack(uint16_t handle) const {
    auto it = nodeTracks.find(handle);
    return it == nodeTracks.end() ? nullptr : it->second.get();
}

VertexAnimationTrack* Animation::getVertexTrack(uint16_t handle) const {
    auto it = vertexTracks.find(handle);
    return it == vertexTracks.end() ? nullptr : it->second.get();
}

void Animation::buildKeyFrameTimeList() {
    if (!keyFrameTimesDirty) return;
    keyFrameTimes.clear();
    for (const auto& track : vertexTracks) track.second->_collectKeyFrameTimes(keyFrameTimes);
    for (const auto& track : nodeTracks) track.second->_collectKeyFrameTimes(keyFrameTimes);
    for (const auto& track : vertexTracks) track.second->_buildKeyFrameIndexMap(keyFrameTimes);
    for (const auto& track : nodeTracks) track.second->_buildKeyFrameIndexMap(keyFrameTimes);
    keyFrameTimesDirty = false;
}

TimeIndex Animation::_getTimeIndex(float time) {
    buildKeyFrameTimeList();
    if (length > 0.0f && time > length) time = std::fmod(time, length);
    auto it = std::lower_bound(keyFrameTimes.begin(), keyFrameTimes.end(), time);
    return TimeIndex(time, static_cast<uint32_t>(it - keyFrameTimes.begin()));
}

void Animation::apply(Skeleton* skeleton, float time, float weight, float scale) {
    if (!skeleton) return;
    TimeIndex index = _getTimeIndex(time);
    for (const auto& track : nodeTracks)
        track.second->applyToNode(skeleton->getBone(track.first), index, weight, scale);
}
