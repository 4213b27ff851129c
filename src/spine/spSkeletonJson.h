#pragma once

struct spAtlas;
struct spAttachmentLoader;
struct spSkeletonData;

// Reads skeleton data from the JSON export. On failure the read returns null
// and `error` holds the reason.
struct spSkeletonJson {
    float scale;  // every distance read is multiplied by it
    spAttachmentLoader* attachmentLoader;
    const char* error;
    void* application;  // handed to _spUtil_readFile
    int ownsLoader;
};

// Uses an atlas attachment loader on the atlas; the atlas's renderer object
// is the application used to read files.
spSkeletonJson* spSkeletonJson_create(spAtlas* atlas);
spSkeletonJson* spSkeletonJson_createWithLoader(spAttachmentLoader* attachmentLoader);
void spSkeletonJson_dispose(spSkeletonJson* self);

spSkeletonData* spSkeletonJson_readSkeletonData(spSkeletonJson* self, const char* json);
spSkeletonData* spSkeletonJson_readSkeletonDataWithLength(spSkeletonJson* self, const char* json, int length);
spSkeletonData* spSkeletonJson_readSkeletonDataFile(spSkeletonJson* self, const char* path);
