#include "platform/ZuAssetManager.h"

#if !defined(__ANDROID__)

#include <climits>
#include <cstdio>
#include <cstring>
#include <string>
#include <sys/stat.h>

struct AAssetManager {
    std::string root; // ends in '/'
};

struct AAsset {
    FILE* file;
    off_t length;
};

namespace {

// Asset names are package-relative: no leading '/', no ".." segment, and no
// empty name.
bool isPackageName(const char* name) {
    if (!name || !*name || name[0] == '/') return false;
    const char* segment = name;
    for (;;) {
        const char* slash = strchr(segment, '/');
        size_t length = slash ? static_cast<size_t>(slash - segment) : strlen(segment);
        if (length == 2 && segment[0] == '.' && segment[1] == '.') return false;
        if (!slash) return true;
        segment = slash + 1;
    }
}

} // namespace

extern "C" {

AAssetManager* AAssetManager_createFromDirectory(const char* dir) {
    struct stat info;
    if (!dir || !*dir || stat(dir, &info) != 0 || !S_ISDIR(info.st_mode)) return nullptr;
    AAssetManager* manager = new AAssetManager;
    manager->root = dir;
    if (manager->root.back() != '/') manager->root += '/';
    return manager;
}

void AAssetManager_destroy(AAssetManager* manager) { delete manager; }

AAsset* AAssetManager_open(AAssetManager* manager, const char* filename, int mode) {
    if (!manager || !isPackageName(filename)) return nullptr;
    std::string path = manager->root + filename;
    FILE* file = fopen(path.c_str(), "rb");
    if (!file) return nullptr;
    struct stat info;
    // A directory opens with fopen on Linux but is no asset.
    if (fstat(fileno(file), &info) != 0 || !S_ISREG(info.st_mode)) {
        fclose(file);
        return nullptr;
    }
    return new AAsset{file, info.st_size};
}

off_t AAsset_getLength(AAsset* asset) { return asset ? asset->length : 0; }

int AAsset_read(AAsset* asset, void* buffer, size_t count) {
    if (!asset || !buffer) return -1;
    if (count > INT_MAX) count = INT_MAX;
    size_t got = fread(buffer, 1, count, asset->file);
    if (got == 0 && ferror(asset->file)) return -1;
    return static_cast<int>(got);
}

void AAsset_close(AAsset* asset) {
    if (!asset) return;
    fclose(asset->file);
    delete asset;
}

} // extern "C"

#endif
