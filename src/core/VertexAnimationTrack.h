#pragma once

#include "core/AnimationTrack.h"
#include "core/Pose.h"
#include "core/VertexMorphKeyFrame.h"
#include "core/VertexPoseKeyFrame.h"

#include <vector>

class VertexData;

enum VertexAnimationType : uint16_t { VAT_NONE = 0, VAT_MORPH = 1, VAT_POSE = 2 };

// The key frames of one vertex set: whole-set morphs or pose blends.
class VertexAnimationTrack : public AnimationTrack {
public:
    VertexAnimationTrack(Animation* parent, uint16_t handle, VertexData* data, VertexAnimationType type)
        : AnimationTrack(parent, handle), type(type), targetData(data) {}

    VertexPoseKeyFrame* createVertexPoseKeyFrame(float time) {
        return type == VAT_POSE ? static_cast<VertexPoseKeyFrame*>(createKeyFrame(time)) : nullptr;
    }
    VertexMorphKeyFrame* createVertexMorphKeyFrame(float time) {
        return type == VAT_MORPH ? static_cast<VertexMorphKeyFrame*>(createKeyFrame(time)) : nullptr;
    }

    // Blends the track at the time into the working data and writes the
    // moved positions to output (floats, outputStride floats a vertex).
    // Returns false when a pose reference names no pose (nothing written).
    bool applyToVertexData(VertexData* working, const TimeIndex& timeIndex, float* output, int outputStride,
                           float weight, const std::vector<Pose*>& poses);
    void applyToMorphVertexData(VertexData* working, float t, const VertexMorphKeyFrame* k1,
                                const VertexMorphKeyFrame* k2, float* output, int outputStride);

    // Adds a pose's offsets (and normals, when they share the position's
    // buffer) times weight into the data; positions also go to output.
    static void softwareVertexPoseBlend(float weight, const Pose::VertexOffsetMap& offsets,
                                        const Pose::VertexOffsetMap& normals, VertexData* data,
                                        float* output, int outputStride);
    // a + t (b - a) for each vertex's position (and normalised normal).
    static void softwareVertexMorph(float t, int outputStride, const float* a, const float* b, float* output,
                                    VertexData* data, bool morphNormals);

    VertexAnimationType getAnimationType() const { return type; }
    VertexData* getAssociatedVertexData() const { return targetData; }

protected:
    KeyFrame* createKeyFrameImpl(float time) override;

private:
    VertexAnimationType type;
    VertexData* targetData;
};
