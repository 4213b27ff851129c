#include "core/ZuMatSkeletonAnimation.h"

#include <GLES2/gl2.h>

#include <cstdio>
#include <cstring>

ZuMatSkeletonAnimation::ZuMatSkeletonAnimation(ZuAppMain* app, bool perVertexMorph)
    : ZuGMaterial(app, perVertexMorph ? "skin_morph_animation2" : "skin_morph_animation") {
    for (auto& bone : bones)
        for (int i = 0; i < 16; ++i) bone[i] = i % 5 == 0 ? 1.0f : 0.0f;
}

void ZuMatSkeletonAnimation::setBoneTransform(int bone, const float* matrix) {
    if (bone < 0 || bone >= kMaxBones || !matrix) return;
    std::memcpy(bones[bone], matrix, sizeof bones[bone]);
    if (bone >= boneCount) boneCount = bone + 1;
}

void ZuMatSkeletonAnimation::setMorphWeight(int slot, float weight) {
    if (slot >= 0 && slot < kMorphWeights) morphWeights[slot] = weight;
}

void ZuMatSkeletonAnimation::clearMorphWeight() {
    for (float& w : morphWeights) w = 0.0f;
}

void ZuMatSkeletonAnimation::_refreshInner() {
    char name[24];
    for (int i = 0; i < boneCount; ++i) {
        std::snprintf(name, sizeof name, "gBones[%d]", i);
        int location = glGetUniformLocation(program, name);
        // The program declares as many bones as a GL ES 2 vertex stage holds.
        if (location >= 0) glUniformMatrix4fv(location, 1, GL_FALSE, bones[i]);
    }
    for (int i = 0; i < kMorphWeights; ++i) {
        std::snprintf(name, sizeof name, "aWeight%d", i + 1);
        int location = uniformLocation(name);
        if (location >= 0) glUniform1f(location, morphWeights[i]);
    }
}
