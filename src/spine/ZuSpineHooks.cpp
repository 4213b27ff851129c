#include "spine/ZuSpineHooks.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "platform/ZuLog.h"
#include "spine/spAllocator.h"
#include "spine/spAtlas.h"

#include <stdio.h>
#include <string.h>

namespace {

// Larger files are not skeleton data; refusing them keeps a wrong path from
// exhausting memory.
const long kMaxFileSize = 256L * 1024 * 1024;

char* readWithStdio(const char* path, int* length) {
    FILE* file = fopen(path, "rb");
    if (!file) return nullptr;
    char* data = nullptr;
    long size = -1;
    if (fseek(file, 0, SEEK_END) == 0) size = ftell(file);
    if (size >= 0 && size <= kMaxFileSize && fseek(file, 0, SEEK_SET) == 0) {
        data = SP_MALLOC(char, size + 1);
        if (data && fread(data, 1, (size_t)size, file) == (size_t)size) {
            data[size] = 0;
            *length = (int)size;
        } else {
            SP_FREE(data);
            data = nullptr;
        }
    }
    fclose(file);
    return data;
}

// Through the engine's file manager, so that package paths resolve against
// the registered search paths and the app's assets. An engine whose managers
// are not built yet has no file manager; the path is then read as given.
char* readWithFileMgr(ZuAppMain* app, const char* path, int* length) {
    ZuGlobalMgr* globalMgr = app->getGlobalMgr();
    ZuFileMgr* fileMgr = globalMgr ? globalMgr->getFileMgr() : nullptr;
    if (!fileMgr) return readWithStdio(path, length);
    DataChunk chunk;
    if (!fileMgr->loadFileContent(&chunk, path) || chunk.size < 0) return nullptr;
    char* data = SP_MALLOC(char, (size_t)chunk.size + 1);
    if (!data) return nullptr;
    if (chunk.size > 0) memcpy(data, chunk.buffer, (size_t)chunk.size);
    data[chunk.size] = 0;
    *length = chunk.size;
    return data;
}

void defaultCreateTexture(void* application, spAtlasPage* page, const char* path) {
    (void)application;
    (void)path;
    // No texture manager here: the page keeps no texture and the size from
    // its "size" line.
    page->rendererObject = nullptr;
}

void defaultDisposeTexture(spAtlasPage* page) {
    page->rendererObject = nullptr;
}

ZuSpineCreateTextureFunc g_createTexture = defaultCreateTexture;
ZuSpineDisposeTextureFunc g_disposeTexture = defaultDisposeTexture;

} // namespace

char* _spUtil_readFile(void* application, const char* path, int* length) {
    if (length) *length = 0;
    if (!path || !length) return nullptr;
    char* data = application ? readWithFileMgr((ZuAppMain*)application, path, length) : readWithStdio(path, length);
    if (!data) QZLOGW("Spine: cannot read %s", path);
    return data;
}

void _spAtlasPage_createTexture(void* application, spAtlasPage* page, const char* path) {
    g_createTexture(application, page, path);
}

void _spAtlasPage_disposeTexture(spAtlasPage* page) {
    g_disposeTexture(page);
}

void ZuSpineHooks_setTextureFuncs(ZuSpineCreateTextureFunc create, ZuSpineDisposeTextureFunc dispose) {
    g_createTexture = create ? create : defaultCreateTexture;
    g_disposeTexture = dispose ? dispose : defaultDisposeTexture;
}
