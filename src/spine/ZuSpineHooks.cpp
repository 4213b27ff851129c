#include "spine/ZuSpineHooks.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
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

// The engine's texture cache owns one reference; the page takes its own so
// the image outlives ageing for as long as the atlas exists. Without an
// engine (tools, tests of the readers) the page keeps no texture and the
// size from its "size" line.
void defaultCreateTexture(void* application, spAtlasPage* page, const char* path) {
    page->rendererObject = nullptr;
    ZuAppMain* app = static_cast<ZuAppMain*>(application);
    ZuGlobalMgr* globalMgr = app ? app->getGlobalMgr() : nullptr;
    ZuTexMgr* texMgr = globalMgr ? globalMgr->getTexMgr() : nullptr;
    if (!texMgr || !path) return;
    ZuTexture* texture = texMgr->getTexture(path, true, false);
    if (!texture) {
        QZLOGW("Spine: no texture for atlas page %s", path);
        return;
    }
    texture->retain();
    page->rendererObject = texture;
}

void defaultDisposeTexture(spAtlasPage* page) {
    if (page->rendererObject) static_cast<ZuTexture*>(page->rendererObject)->release();
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
