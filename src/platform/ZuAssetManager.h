#pragma once

// The app's packaged assets. On Android these are the NDK calls; elsewhere a
// directory stands in for the package, so that the asset branch of the file
// look-up runs for real in tests and on desktop hosts.
#if defined(__ANDROID__)

#include <android/asset_manager.h>

#else

#include <cstddef>
#include <sys/types.h>

struct AAssetManager;
struct AAsset;

// Open modes; the stand-in reads every asset the same way.
enum {
    AASSET_MODE_UNKNOWN = 0,
    AASSET_MODE_RANDOM = 1,
    AASSET_MODE_STREAMING = 2,
    AASSET_MODE_BUFFER = 3,
};

extern "C" {

// Opens the asset filename, a path relative to the package root. Returns null
// when there is no such regular file, and for absolute names or names that
// climb out of the root with "..", which a package cannot hold.
AAsset* AAssetManager_open(AAssetManager* manager, const char* filename, int mode);

// Length of the whole asset in bytes.
off_t AAsset_getLength(AAsset* asset);

// Reads up to count bytes; returns the count, 0 at the end, negative on error.
int AAsset_read(AAsset* asset, void* buffer, size_t count);

void AAsset_close(AAsset* asset);

// Desktop only: a package rooted at the directory dir; null when dir is not a
// directory. Free it with AAssetManager_destroy after the last open asset is
// closed.
AAssetManager* AAssetManager_createFromDirectory(const char* dir);
void AAssetManager_destroy(AAssetManager* manager);

} // extern "C"

#endif
