#pragma once

// Shared state of one skeleton read, used by the reader's source files.
struct Json;
struct spSkeletonJson;
struct spSkeletonData;
struct spMeshAttachment;
struct spAnimation;

struct spLinkedMeshRef {
    spMeshAttachment* mesh;
    const char* skin;    // null: the default skin
    int slotIndex;
    const char* parent;  // name of the parent mesh
};

struct spJsonRead {
    spSkeletonJson* json;
    spSkeletonData* data;
    float scale;
    int linkedMeshesCount;
    int linkedMeshesCapacity;
    spLinkedMeshRef* linkedMeshes;
};

// Sets the reader's error to first + second (either may be null); returns
// false so callers can write `return _spJsonRead_fail(...)`.
bool _spJsonRead_fail(spJsonRead* read, const char* first, const char* second);

// Reads one entry of "animations"; null with the error set on failure.
spAnimation* _spJsonRead_animation(spJsonRead* read, Json* animationMap);

// Colour "RRGGBBAA" into 0..1 channels; missing or bad digits count as f.
void _spJsonRead_color(const char* text, float* r, float* g, float* b, float* a);
