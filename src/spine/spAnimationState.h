#pragma once

struct spAnimationStateData;
struct spAnimation;
struct spSkeleton;
struct spEvent;
struct spAnimationState;

enum spEventType { SP_ANIMATION_START, SP_ANIMATION_END, SP_ANIMATION_COMPLETE, SP_ANIMATION_EVENT };

// Called for start, end, complete (with the number of completed turns) and
// keyed events (with the event). A listener may set or clear the track's
// animation; the state then stops working on the replaced entry.
typedef void (*spAnimationStateListener)(spAnimationState* state, int trackIndex, spEventType type,
                                         spEvent* event, int loopCount);

// One animation playing, or queued, on a track.
struct spTrackEntry {
    spAnimationState* state;
    spTrackEntry* next;      // queued after this one
    spTrackEntry* previous;  // being mixed out while this one mixes in
    spAnimation* animation;
    int loop;
    float delay, time, lastTime, endTime, timeScale;
    spAnimationStateListener listener;
    float mixTime, mixDuration, mix;
    void* rendererObject;
};

// Plays animations on numbered tracks; higher tracks apply over lower ones.
struct spAnimationState {
    spAnimationStateData* data;
    float timeScale;
    spAnimationStateListener listener;

    int tracksCount;
    spTrackEntry** tracks;

    void* rendererObject;

    // Events fired during one track's apply; grown when an animation with
    // more keyed events is set, never during apply.
    int eventsCapacity;
    int eventsNeeded;
    spEvent** events;

    spTrackEntry* (*createTrackEntry)(spAnimationState* self);
    void (*disposeTrackEntry)(spTrackEntry* entry);
};

spTrackEntry* _spTrackEntry_create(spAnimationState* state);
void _spTrackEntry_dispose(spTrackEntry* entry);

spAnimationState* spAnimationState_create(spAnimationStateData* data);
void spAnimationState_dispose(spAnimationState* self);

// Advances the tracks by delta seconds, starting queued entries whose delay
// has passed and clearing finished non-looping tracks.
void spAnimationState_update(spAnimationState* self, float delta);
// Poses the skeleton from every track and fires listeners.
void spAnimationState_apply(spAnimationState* self, spSkeleton* skeleton);
// Moves every track to a fraction of its entry's length.
void spAnimationState_percent(spAnimationState* self, float percent);

void spAnimationState_clearTracks(spAnimationState* self);
void spAnimationState_clearTrack(spAnimationState* self, int trackIndex);

// Replaces the track's current and queued entries. Null for a null or
// unknown animation or a track index out of range.
spTrackEntry* spAnimationState_setAnimationByName(spAnimationState* self, int trackIndex, const char* animationName,
                                                  int loop);
spTrackEntry* spAnimationState_setAnimation(spAnimationState* self, int trackIndex, spAnimation* animation, int loop);

// Queues after the track's last entry. A delay at or below 0 counts from the
// end of the last entry, less the mix duration (plus the delay). On an empty
// track the entry starts at once, without a start event.
spTrackEntry* spAnimationState_addAnimationByName(spAnimationState* self, int trackIndex, const char* animationName,
                                                  int loop, float delay);
spTrackEntry* spAnimationState_addAnimation(spAnimationState* self, int trackIndex, spAnimation* animation, int loop,
                                            float delay);

spTrackEntry* spAnimationState_getCurrent(const spAnimationState* self, int trackIndex);
