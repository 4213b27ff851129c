#pragma once

// A named event with its default payload.
struct spEventData {
    const char* name;
    int intValue;
    float floatValue;
    const char* stringValue;
};

spEventData* spEventData_create(const char* name);
void spEventData_dispose(spEventData* self);
