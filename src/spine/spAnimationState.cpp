#include "spine/spAnimationState.h"

#include "spine/spAllocator.h"
#include "spine/spAnimation.h"
#include "spine/spAnimationStateData.h"
#include "spine/spMath.h"
#include "spine/spSkeletonData.h"

#include <math.h>
#include <string.h>

namespace {

// More tracks than this is a caller's error, not a need.
const int kMaxTracks = 1024;

void disposeEntries(spAnimationState* self, spTrackEntry* entry) {
    while (entry) {
        spTrackEntry* next = entry->next;
        if (entry->previous) self->disposeTrackEntry(entry->previous);
        self->disposeTrackEntry(entry);
        entry = next;
    }
}

// Makes room for trackIndex; returns false for an index out of range.
bool expandToIndex(spAnimationState* self, int trackIndex) {
    if (trackIndex < 0 || trackIndex >= kMaxTracks) return false;
    if (trackIndex < self->tracksCount) return true;
    spTrackEntry** tracks = SP_CALLOC(spTrackEntry*, trackIndex + 1);
    if (self->tracksCount) memcpy(tracks, self->tracks, sizeof(spTrackEntry*) * self->tracksCount);
    SP_FREE(self->tracks);
    self->tracks = tracks;
    self->tracksCount = trackIndex + 1;
    return true;
}

// Notes how many events the animation can fire in one apply. The buffer
// grows at the start of a track's apply, never while listeners run over it.
void reserveEvents(spAnimationState* self, const spAnimation* animation) {
    int needed = spAnimation_maxFiredEvents(animation);
    if (needed > self->eventsNeeded) self->eventsNeeded = needed;
}

void growEvents(spAnimationState* self) {
    if (self->eventsNeeded <= self->eventsCapacity) return;
    int capacity = self->eventsCapacity > 0 ? self->eventsCapacity : 64;
    while (capacity < self->eventsNeeded) capacity *= 2;
    SP_FREE(self->events);
    self->events = SP_MALLOC(spEvent*, capacity);
    self->eventsCapacity = capacity;
}

void notify(spAnimationState* self, spTrackEntry* entry, int trackIndex, spEventType type, spEvent* event,
            int loopCount) {
    if (entry->listener) entry->listener(self, trackIndex, type, event, loopCount);
    if (self->listener) self->listener(self, trackIndex, type, event, loopCount);
}

// The track's bookkeeping is finished before any listener runs, so that a
// listener may set or clear the track without finding half-linked entries.
void setCurrent(spAnimationState* self, int index, spTrackEntry* entry) {
    spTrackEntry* current = self->tracks[index];
    spTrackEntry* discarded = nullptr;
    if (current) {
        if (current->next == entry) current->next = nullptr;
        spTrackEntry* previous = current->previous;
        current->previous = nullptr;

        entry->mixDuration = spAnimationStateData_getMix(self->data, current->animation, entry->animation);
        if (entry->mixDuration > 0) {
            entry->mixTime = 0;
            // A cross-fade interrupted before half of it is done keeps fading
            // out the older entry, which is still the larger share.
            if (previous && current->mixDuration > 0 && current->mixTime / current->mixDuration < 0.5f) {
                entry->previous = previous;
                discarded = current;
            } else {
                entry->previous = current;
                discarded = previous;
            }
        } else {
            discarded = current;
            if (previous) self->disposeTrackEntry(previous);
        }
        // What the old entry still queued goes with it.
        if (current->next) {
            disposeEntries(self, current->next);
            current->next = nullptr;
        }
    }

    self->tracks[index] = entry;

    if (current) {
        // The old entry is alive until its end listeners have run.
        notify(self, current, index, SP_ANIMATION_END, nullptr, 0);
        if (discarded) self->disposeTrackEntry(discarded);
        if (self->tracks[index] != entry) return;
    }

    if (entry->listener) {
        entry->listener(self, index, SP_ANIMATION_START, nullptr, 0);
        if (self->tracks[index] != entry) return;
    }
    if (self->listener) self->listener(self, index, SP_ANIMATION_START, nullptr, 0);
}

spTrackEntry* makeEntry(spAnimationState* self, spAnimation* animation, int loop) {
    spTrackEntry* entry = self->createTrackEntry(self);
    entry->animation = animation;
    entry->loop = loop;
    entry->endTime = animation->duration;
    reserveEvents(self, animation);
    return entry;
}

// Advances a track to its queued entry, or clears a finished one.
void advanceQueue(spAnimationState* self, int index, spTrackEntry* current) {
    spTrackEntry* next = current->next;
    if (next) {
        next->time = current->lastTime - next->delay;
        if (next->time >= 0) setCurrent(self, index, next);
    } else if (!current->loop && current->lastTime >= current->endTime) {
        spAnimationState_clearTrack(self, index);
    }
}

} // namespace

spTrackEntry* _spTrackEntry_create(spAnimationState* state) {
    spTrackEntry* entry = SP_NEW(spTrackEntry);
    entry->state = state;
    entry->timeScale = 1;
    entry->lastTime = -1;
    entry->mix = 1;
    return entry;
}

void _spTrackEntry_dispose(spTrackEntry* entry) {
    SP_FREE(entry);
}

spAnimationState* spAnimationState_create(spAnimationStateData* data) {
    spAnimationState* self = SP_NEW(spAnimationState);
    self->data = data;
    self->timeScale = 1;
    self->eventsCapacity = 64;
    self->eventsNeeded = 64;
    self->events = SP_MALLOC(spEvent*, self->eventsCapacity);
    self->createTrackEntry = _spTrackEntry_create;
    self->disposeTrackEntry = _spTrackEntry_dispose;
    return self;
}

void spAnimationState_dispose(spAnimationState* self) {
    if (!self) return;
    for (int i = 0; i < self->tracksCount; i++) disposeEntries(self, self->tracks[i]);
    SP_FREE(self->tracks);
    SP_FREE(self->events);
    SP_FREE(self);
}

void spAnimationState_update(spAnimationState* self, float delta) {
    delta *= self->timeScale;
    for (int i = 0; i < self->tracksCount; i++) {
        spTrackEntry* current = self->tracks[i];
        if (!current) continue;
        current->time += delta * current->timeScale;
        if (current->previous) {
            float previousDelta = delta * current->previous->timeScale;
            current->previous->time += previousDelta;
            current->mixTime += previousDelta;
        }
        advanceQueue(self, i, current);
    }
}

void spAnimationState_apply(spAnimationState* self, spSkeleton* skeleton) {
    for (int i = 0; i < self->tracksCount; i++) {
        spTrackEntry* current = self->tracks[i];
        if (!current) continue;
        growEvents(self);
        int eventsCount = 0;

        // A non-looping entry holds its last pose; its last time is held too
        // so that keys at the end don't fire again while it is held.
        float time = current->time, lastTime = current->lastTime;
        if (!current->loop) {
            if (time > current->endTime) time = current->endTime;
            if (lastTime > current->endTime) lastTime = current->endTime;
        }

        spTrackEntry* previous = current->previous;
        if (!previous) {
            if (current->mix == 1)
                spAnimation_apply(current->animation, skeleton, lastTime, time, current->loop, self->events,
                                  &eventsCount);
            else
                spAnimation_mix(current->animation, skeleton, lastTime, time, current->loop, self->events,
                                &eventsCount, current->mix);
        } else {
            float alpha = current->mixDuration > 0 ? current->mixTime / current->mixDuration * current->mix : 1;
            float previousTime = previous->time;
            if (!previous->loop && previousTime > previous->endTime) previousTime = previous->endTime;
            spAnimation_apply(previous->animation, skeleton, previousTime, previousTime, previous->loop, nullptr,
                              nullptr);
            if (alpha >= 1) {
                alpha = 1;
                self->disposeTrackEntry(previous);
                current->previous = nullptr;
            }
            spAnimation_mix(current->animation, skeleton, lastTime, time, current->loop, self->events,
                            &eventsCount, alpha);
        }

        bool replaced = false;
        for (int e = 0; e < eventsCount && !replaced; e++) {
            spEvent* event = self->events[e];
            if (current->listener) {
                current->listener(self, i, SP_ANIMATION_EVENT, event, 0);
                if (self->tracks[i] != current) {
                    replaced = true;
                    break;
                }
            }
            if (self->listener) {
                self->listener(self, i, SP_ANIMATION_EVENT, event, 0);
                if (self->tracks[i] != current) replaced = true;
            }
        }
        if (replaced) continue;

        float end = current->endTime;
        bool complete;
        if (current->loop)
            complete = end != 0 && fmodf(current->lastTime, end) > fmodf(time, end);
        else
            complete = current->lastTime < end && time >= end;
        if (complete) {
            int count = end > 0 ? spFloatToInt(time / end) : 1;
            if (current->listener) {
                current->listener(self, i, SP_ANIMATION_COMPLETE, nullptr, count);
                if (self->tracks[i] != current) continue;
            }
            if (self->listener) {
                self->listener(self, i, SP_ANIMATION_COMPLETE, nullptr, count);
                if (self->tracks[i] != current) continue;
            }
        }

        current->lastTime = current->time;
    }
}

void spAnimationState_percent(spAnimationState* self, float percent) {
    for (int i = 0; i < self->tracksCount; i++) {
        spTrackEntry* current = self->tracks[i];
        if (!current) continue;
        current->time = percent * current->endTime;
        if (current->previous) {
            current->previous->time = current->previous->endTime * percent;
            current->mixTime = current->mixDuration * percent;
        }
        advanceQueue(self, i, current);
    }
}

void spAnimationState_clearTracks(spAnimationState* self) {
    for (int i = 0; i < self->tracksCount; i++) spAnimationState_clearTrack(self, i);
}

void spAnimationState_clearTrack(spAnimationState* self, int trackIndex) {
    if (trackIndex < 0 || trackIndex >= self->tracksCount) return;
    spTrackEntry* current = self->tracks[trackIndex];
    if (!current) return;
    // Detached first: an end listener may put a new entry on the track.
    self->tracks[trackIndex] = nullptr;
    notify(self, current, trackIndex, SP_ANIMATION_END, nullptr, 0);
    disposeEntries(self, current);
}

spTrackEntry* spAnimationState_setAnimationByName(spAnimationState* self, int trackIndex, const char* animationName,
                                                  int loop) {
    spAnimation* animation = spSkeletonData_findAnimation(self->data->skeletonData, animationName);
    return spAnimationState_setAnimation(self, trackIndex, animation, loop);
}

spTrackEntry* spAnimationState_setAnimation(spAnimationState* self, int trackIndex, spAnimation* animation,
                                            int loop) {
    if (!animation || !expandToIndex(self, trackIndex)) return nullptr;
    spTrackEntry* current = self->tracks[trackIndex];
    if (current) {
        disposeEntries(self, current->next);
        current->next = nullptr;
    }
    spTrackEntry* entry = makeEntry(self, animation, loop);
    setCurrent(self, trackIndex, entry);
    return entry;
}

spTrackEntry* spAnimationState_addAnimationByName(spAnimationState* self, int trackIndex, const char* animationName,
                                                  int loop, float delay) {
    spAnimation* animation = spSkeletonData_findAnimation(self->data->skeletonData, animationName);
    return spAnimationState_addAnimation(self, trackIndex, animation, loop, delay);
}

spTrackEntry* spAnimationState_addAnimation(spAnimationState* self, int trackIndex, spAnimation* animation, int loop,
                                            float delay) {
    if (!animation || !expandToIndex(self, trackIndex)) return nullptr;
    spTrackEntry* entry = makeEntry(self, animation, loop);
    spTrackEntry* last = self->tracks[trackIndex];
    if (last) {
        while (last->next) last = last->next;
        last->next = entry;
    } else {
        self->tracks[trackIndex] = entry;
    }
    if (delay <= 0) {
        if (last)
            delay += last->endTime - spAnimationStateData_getMix(self->data, last->animation, animation);
        else
            delay = 0;
    }
    entry->delay = delay;
    return entry;
}

spTrackEntry* spAnimationState_getCurrent(const spAnimationState* self, int trackIndex) {
    if (trackIndex < 0 || trackIndex >= self->tracksCount) return nullptr;
    return self->tracks[trackIndex];
}
