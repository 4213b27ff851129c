#include "core/VertexAnimationTrack.h"

#include "core/VertexData.h"

#include <cmath>
#include <cstring>

KeyFrame* VertexAnimationTrack::createKeyFrameImpl(float time) {
    if (type == VAT_MORPH) return new VertexMorphKeyFrame(this, time);
    return new VertexPoseKeyFrame(this, time);
}

namespace {
// The float buffer and stride (in floats) of an element, or null.
float* elementFloats(VertexData* data, const VertexElement* element, uint32_t* strideFloats) {
    if (!data || !element) return nullptr;
    VertexBufferBinding::BufferPtr buffer = data->vertexBufferBinding.getBuffer(element->source);
    if (!buffer || buffer->getVertexSize() % 4 || element->offset % 4) return nullptr;
    if (element->offset + 12 > buffer->getVertexSize()) return nullptr;
    *strideFloats = buffer->getVertexSize() / 4;
    return reinterpret_cast<float*>(buffer->getData()) + element->offset / 4;
}
} // namespace

void VertexAnimationTrack::softwareVertexPoseBlend(float weight, const Pose::VertexOffsetMap& offsets,
                                                   const Pose::VertexOffsetMap& normals, VertexData* data,
                                                   float* output, int outputStride) {
    if (weight == 0.0f || !data) return;
    const VertexElement* posElem = data->vertexDeclaration.findElementBySemantic(VES_POSITION);
    uint32_t stride = 0;
    float* pos = elementFloats(data, posElem, &stride);
    if (!pos) return;
    for (const auto& entry : offsets) {
        if (entry.first >= data->vertexCount) continue;
        float* p = pos + static_cast<size_t>(entry.first) * stride;
        p[0] += entry.second.x * weight;
        p[1] += entry.second.y * weight;
        p[2] += entry.second.z * weight;
        if (output) std::memcpy(output + static_cast<size_t>(entry.first) * outputStride, p, 12);
    }
    const VertexElement* normElem = data->vertexDeclaration.findElementBySemantic(VES_NORMAL);
    if (!normElem || normElem->source != posElem->source || normals.empty()) return;
    uint32_t nstride = 0;
    float* nrm = elementFloats(data, normElem, &nstride);
    if (!nrm) return;
    for (const auto& entry : normals) {
        if (entry.first >= data->vertexCount) continue;
        float* n = nrm + static_cast<size_t>(entry.first) * nstride;
        n[0] += entry.second.x * weight;
        n[1] += entry.second.y * weight;
        n[2] += entry.second.z * weight;
    }
}

void VertexAnimationTrack::softwareVertexMorph(float t, int outputStride, const float* a, const float* b,
                                               float* output, VertexData* data, bool morphNormals) {
    if (!data || !a || !b || !output) return;
    const int in = morphNormals ? 6 : 3;
    for (uint32_t v = 0; v < data->vertexCount; ++v) {
        const float* pa = a + static_cast<size_t>(v) * in;
        const float* pb = b + static_cast<size_t>(v) * in;
        float* o = output + static_cast<size_t>(v) * outputStride;
        for (int c = 0; c < 3; ++c) o[c] = pa[c] + t * (pb[c] - pa[c]);
        if (morphNormals && outputStride >= 6) {
            float n[3];
            for (int c = 0; c < 3; ++c) n[c] = pa[3 + c] + t * (pb[3 + c] - pa[3 + c]);
            float len = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
            for (int c = 0; c < 3; ++c) o[3 + c] = len > 0.0f ? n[c] / len : 0.0f;
        }
    }
}

void VertexAnimationTrack::applyToMorphVertexData(VertexData* working, float t, const VertexMorphKeyFrame* k1,
                                                  const VertexMorphKeyFrame* k2, float* output,
                                                  int outputStride) {
    if (!working || !k1 || !k2) return;
    size_t per = k1->includesNormals ? 6 : 3;
    size_t need = static_cast<size_t>(working->vertexCount) * per * sizeof(float);
    // Frames that don't cover the vertex set are left alone.
    if (k1->getVertexBufferBytes() < need || k2->getVertexBufferBytes() < need ||
        k1->includesNormals != k2->includesNormals)
        return;
    const VertexElement* normElem = working->vertexDeclaration.findElementBySemantic(VES_NORMAL);
    const VertexElement* posElem = working->vertexDeclaration.findElementBySemantic(VES_POSITION);
    bool normals = k1->includesNormals && normElem && posElem && normElem->source == posElem->source;
    softwareVertexMorph(t, outputStride, k1->getVertexBuffer(), k2->getVertexBuffer(), output, working, normals);
}

bool VertexAnimationTrack::applyToVertexData(VertexData* working, const TimeIndex& timeIndex, float* output,
                                             int outputStride, float weight, const std::vector<Pose*>& poses) {
    if (frames.empty() || !working) return true;
    KeyFrame* a = nullptr;
    KeyFrame* b = nullptr;
    float t = getKeyFramesAtTime(timeIndex, &a, &b);
    if (type == VAT_MORPH) {
        applyToMorphVertexData(working, t, static_cast<VertexMorphKeyFrame*>(a),
                               static_cast<VertexMorphKeyFrame*>(b), output, outputStride);
        return true;
    }
    auto* k1 = static_cast<VertexPoseKeyFrame*>(a);
    auto* k2 = static_cast<VertexPoseKeyFrame*>(b);
    for (const auto& ref : k1->getPoseReferences())
        if (ref.poseIndex >= poses.size()) return false;
    for (const auto& ref : k2->getPoseReferences())
        if (ref.poseIndex >= poses.size()) return false;
    for (const auto& r1 : k1->getPoseReferences()) {
        float i2 = 0.0f;
        for (const auto& r2 : k2->getPoseReferences())
            if (r2.poseIndex == r1.poseIndex) {
                i2 = r2.influence;
                break;
            }
        float influence = (r1.influence + t * (i2 - r1.influence)) * weight;
        const Pose* pose = poses[r1.poseIndex];
        softwareVertexPoseBlend(influence, pose->getVertexOffsets(), pose->getNormals(), working, output,
                                outputStride);
    }
    for (const auto& r2 : k2->getPoseReferences()) {
        bool inFirst = false;
        for (const auto& r1 : k1->getPoseReferences())
            if (r1.poseIndex == r2.poseIndex) inFirst = true;
        if (inFirst) continue;
        const Pose* pose = poses[r2.poseIndex];
        softwareVertexPoseBlend(r2.influence * t * weight, pose->getVertexOffsets(), pose->getNormals(), working,
                                output, outputStride);
    }
    return true;
}
