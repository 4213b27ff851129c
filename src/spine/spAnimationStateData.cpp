#include "spine/spAnimationStateData.h"

#include "spine/spAllocator.h"
#include "spine/spSkeletonData.h"

spAnimationStateData* spAnimationStateData_create(spSkeletonData* skeletonData) {
    spAnimationStateData* self = SP_NEW(spAnimationStateData);
    self->skeletonData = skeletonData;
    return self;
}

void spAnimationStateData_dispose(spAnimationStateData* self) {
    if (!self) return;
    spFromEntry* from = self->entries;
    while (from) {
        spToEntry* to = from->toEntries;
        while (to) {
            spToEntry* next = to->next;
            SP_FREE(to);
            to = next;
        }
        spFromEntry* next = from->next;
        SP_FREE(from);
        from = next;
    }
    SP_FREE(self);
}

void spAnimationStateData_setMix(spAnimationStateData* self, spAnimation* from, spAnimation* to, float duration) {
    if (!from || !to) return;
    spFromEntry* fromEntry = self->entries;
    while (fromEntry && fromEntry->animation != from) fromEntry = fromEntry->next;
    if (!fromEntry) {
        fromEntry = SP_NEW(spFromEntry);
        fromEntry->animation = from;
        fromEntry->next = self->entries;
        self->entries = fromEntry;
    }
    for (spToEntry* toEntry = fromEntry->toEntries; toEntry; toEntry = toEntry->next) {
        if (toEntry->animation == to) {
            toEntry->duration = duration;
            return;
        }
    }
    spToEntry* toEntry = SP_NEW(spToEntry);
    toEntry->animation = to;
    toEntry->duration = duration;
    toEntry->next = fromEntry->toEntries;
    fromEntry->toEntries = toEntry;
}

void spAnimationStateData_setMixByName(spAnimationStateData* self, const char* fromName, const char* toName,
                                       float duration) {
    spAnimation* from = spSkeletonData_findAnimation(self->skeletonData, fromName);
    spAnimation* to = spSkeletonData_findAnimation(self->skeletonData, toName);
    if (from && to) spAnimationStateData_setMix(self, from, to, duration);
}

float spAnimationStateData_getMix(const spAnimationStateData* self, const spAnimation* from, const spAnimation* to) {
    for (const spFromEntry* fromEntry = self->entries; fromEntry; fromEntry = fromEntry->next) {
        if (fromEntry->animation != from) continue;
        for (const spToEntry* toEntry = fromEntry->toEntries; toEntry; toEntry = toEntry->next)
            if (toEntry->animation == to) return toEntry->duration;
        break;
    }
    return self->defaultMix;
}
