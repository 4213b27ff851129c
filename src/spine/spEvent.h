#pragma once

struct spEventData;

// One keyed occurrence of an event in an animation, handed to listeners.
struct spEvent {
    spEventData* data;
    float time;
    int intValue;
    float floatValue;
    const char* stringValue;
};

spEvent* spEvent_create(float time, spEventData* data);
void spEvent_dispose(spEvent* self);
