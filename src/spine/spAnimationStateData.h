#pragma once

struct spSkeletonData;
struct spAnimation;

// Cross-fade duration for one pair of animations.
struct spToEntry {
    spAnimation* animation;
    float duration;
    spToEntry* next;
};

struct spFromEntry {
    spAnimation* animation;
    spToEntry* toEntries;
    spFromEntry* next;
};

// Cross-fade durations between animations of one skeleton data.
struct spAnimationStateData {
    spSkeletonData* skeletonData;
    float defaultMix;
    spFromEntry* entries;
};

spAnimationStateData* spAnimationStateData_create(spSkeletonData* skeletonData);
void spAnimationStateData_dispose(spAnimationStateData* self);

void spAnimationStateData_setMix(spAnimationStateData* self, spAnimation* from, spAnimation* to, float duration);
// Does nothing when either name is unknown.
void spAnimationStateData_setMixByName(spAnimationStateData* self, const char* fromName, const char* toName,
                                       float duration);
// The pair's duration, or the default mix.
float spAnimationStateData_getMix(const spAnimationStateData* self, const spAnimation* from, const spAnimation* to);
