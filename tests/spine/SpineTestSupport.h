#pragma once

#include "spine/spRuntime.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace spinetest {

// Path of a file under tests/spine/data.
std::string dataPath(const std::string& name);

// Counts the runtime's heap calls while alive (one at a time).
class AllocationCounter {
public:
    AllocationCounter();
    ~AllocationCounter();
    long mallocs() const;
    long frees() const;
    long live() const { return mallocs() - frees(); }
    void reset();
};

// An atlas, reader, skeleton data and skeleton built from text; disposed
// together.
struct Rig {
    spAtlas* atlas = nullptr;
    spSkeletonJson* json = nullptr;
    spSkeletonData* data = nullptr;
    spSkeleton* skeleton = nullptr;

    // Atlas with one 128x128 page and regions "r" (40x20 at 0,0) and "rot"
    // (40x20 packed turned at 64,0).
    static const char* kAtlas;

    bool load(const std::string& skeletonJson, const std::string& atlasText = kAtlas, float scale = 1);
    std::string error() const;
    ~Rig();

    spBone* bone(const char* name) const;
    spSlot* slot(const char* name) const;
    spAnimation* animation(const char* name) const;
    // Poses from the setup pose with the animation at `time` and updates
    // world transforms.
    void pose(const char* animationName, float time, bool loop = false);
};

// Closed-form value of the runtime's curve: the cubic Bezier from (0, 0) to
// (1, 1) sampled by Bernstein polynomials at t = k/10 and joined linearly.
float bezierPercent(float cx1, float cy1, float cx2, float cy2, float percent);

void expectMatrix(const spBone* bone, float a, float b, float c, float d, float worldX, float worldY,
                  float tolerance = 1e-4f);

} // namespace spinetest
