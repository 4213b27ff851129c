#pragma once

#include "render/material/ZuGMaterial.h"

// The character material: skinning by up to 100 bone matrices ("gBones[i]")
// and ten morph weights ("aWeight1".."aWeight10", kept at 0 by the animoji
// path, which adds its morphs on the processor).
class ZuMatSkeletonAnimation : public ZuGMaterial {
public:
    static const int kMaxBones = 100;
    static const int kMorphWeights = 10;

    // perVertexMorph: "skin_morph_animation2", else "skin_morph_animation".
    ZuMatSkeletonAnimation(ZuAppMain* app, bool perVertexMorph);

    // Column-major 16 floats, as GL reads them; a bone past the limit is ignored.
    void setBoneTransform(int bone, const float* matrix);
    void setBoneCount(int count) { boneCount = count < 0 ? 0 : (count > kMaxBones ? kMaxBones : count); }
    void setMorphWeight(int slot, float weight);
    void clearMorphWeight();

    void _refreshInner() override;

private:
    float bones[kMaxBones][16];
    int boneCount = 0;
    float morphWeights[kMorphWeights] = {};
};
