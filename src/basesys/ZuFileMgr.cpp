#include "basesys/ZuFileMgr.h"

#include "basesys/DataChunk.h"
#include "platform/ZuLog.h"

#include <climits>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>

namespace {

// Files whose bytes (plus the text terminator) do not fit the chunk's int size.
constexpr long kMaxLength = INT_MAX - 1;

bool isRegularFile(FILE* file) {
    struct stat info;
    return fstat(fileno(file), &info) == 0 && S_ISREG(info.st_mode);
}

} // namespace

ZuFileMgr::ZuFileMgr(ZuAppMain* app) : ZuGBase(app) {}

ZuFileMgr::~ZuFileMgr() { destroy(); }

void ZuFileMgr::init() { lock.create(); }

void ZuFileMgr::destroy() {
    if (!lock.isCreated()) return;
    {
        ZuLockGuard hold(lock);
        searchPaths.clear();
    }
    lock.destroy();
}

void ZuFileMgr::addRespath(const char* path) {
    if (!path) return;
    if (!lock.isCreated()) {
        QZLOGW("ZuFileMgr::addRespath before init: \"%s\" ignored", path);
        return;
    }
    ZuLockGuard hold(lock);
    for (uint32_t i = 0; i < searchPaths.size(); ++i)
        if (searchPaths[i] == path) return;
    searchPaths.push_back(qz::string(path));
}

void ZuFileMgr::delRespath(const char* path) {
    if (!path || !lock.isCreated()) return;
    ZuLockGuard hold(lock);
    for (uint32_t i = 0; i < searchPaths.size(); ++i) {
        if (searchPaths[i] == path) {
            searchPaths.erase(i);
            return;
        }
    }
}

unsigned int ZuFileMgr::getSearchPathNum() {
    if (!lock.isCreated()) return 0;
    ZuLockGuard hold(lock);
    return searchPaths.size();
}

qz::string ZuFileMgr::getFileFullName(const char* name) {
    if (!name || !lock.isCreated()) return qz::string();
    // Held for the whole search, so that a path removed meanwhile is not
    // read while being freed.
    ZuLockGuard hold(lock);
    for (uint32_t i = 0; i < searchPaths.size(); ++i) {
        qz::string full = searchPaths[i] + name;
        FILE* file = fopen(full.c_str(), "rb");
        if (!file) continue;
        // fopen accepts a directory on Linux; it is no file to load.
        bool regular = isRegularFile(file);
        fclose(file);
        if (regular) return full;
    }
    return qz::string();
}

bool ZuFileMgr::loadFileContent(DataChunk* chunk, const char* name) {
    return load(chunk, name, false);
}

bool ZuFileMgr::loadFileContentStr(DataChunk* chunk, const char* name) {
    return load(chunk, name, true);
}

bool ZuFileMgr::load(DataChunk* chunk, const char* name, bool asText) {
    if (!chunk || !name) return false;

    if (assetManager) {
        AAsset* asset = AAssetManager_open(assetManager, name, AASSET_MODE_UNKNOWN);
        if (asset) {
            bool done = loadAsset(chunk, asset, name, asText);
            AAsset_close(asset);
            return done;
        }
    }

    qz::string path = getFileFullName(name);
    if (path.empty()) return false;
    return loadFile(chunk, path.c_str(), asText);
}

bool ZuFileMgr::loadAsset(DataChunk* chunk, AAsset* asset, const char* name, bool asText) {
    off_t length = AAsset_getLength(asset);
    // An empty asset is found, but holds nothing: true with an empty chunk.
    if (length <= 0) {
        chunk->reback();
        return true;
    }
    if (length > kMaxLength) {
        QZLOGE("ZuFileMgr: asset \"%s\" of %lld bytes is too large", name,
               static_cast<long long>(length));
        return false;
    }
    int bytes = static_cast<int>(length);
    if (!chunk->apply(asText ? bytes + 1 : bytes)) {
        QZLOGE("ZuFileMgr: no memory for asset \"%s\" (%d bytes)", name, bytes);
        return false;
    }
    int done = 0;
    while (done < bytes) {
        int got = AAsset_read(asset, chunk->buffer + done, static_cast<size_t>(bytes - done));
        if (got <= 0) break;
        done += got;
    }
    // A short read would leave bytes of nobody's choosing; make them zeros.
    if (done < bytes) memset(chunk->buffer + done, 0, static_cast<size_t>(chunk->size - done));
    if (asText) chunk->toString();
    return true;
}

bool ZuFileMgr::loadFile(DataChunk* chunk, const char* path, bool asText) {
    FILE* file = fopen(path, "rb");
    if (!file) return false;

    long length = -1;
    if (fseek(file, 0, SEEK_END) == 0) length = ftell(file);
    if (length < 0 || fseek(file, 0, SEEK_SET) != 0) {
        fclose(file);
        QZLOGE("ZuFileMgr: cannot measure \"%s\"", path);
        return false;
    }
    if (length > kMaxLength) {
        fclose(file);
        QZLOGE("ZuFileMgr: \"%s\" of %ld bytes is too large", path, length);
        return false;
    }

    int bytes = static_cast<int>(length);
    if (!chunk->apply(asText ? bytes + 1 : bytes)) {
        fclose(file);
        QZLOGE("ZuFileMgr: no memory for \"%s\" (%d bytes)", path, bytes);
        return false;
    }
    size_t done = bytes > 0 ? fread(chunk->buffer, 1, static_cast<size_t>(bytes), file) : 0;
    fclose(file);
    if (done < static_cast<size_t>(bytes))
        memset(chunk->buffer + done, 0, static_cast<size_t>(chunk->size) - done);
    if (asText) chunk->toString();
    return true;
}
