#include "basesys/ZuAsvLoader.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"

ZuAsvLoader::ZuAsvLoader(ZuAppMain* app) : ZuFileLoader(app) {}

ZuAsvLoader::~ZuAsvLoader() { destroy(); }

int ZuAsvLoader::load(const char* path) {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    return loadFrom(global ? global->getFileMgr() : nullptr, path);
}

int ZuAsvLoader::loadFrom(ZuFileMgr* files, const char* path) {
    if (!files || !path) return 0;
    DataChunk chunk;
    // A missing file is the caller's to report, as for every file look-up.
    if (!files->loadFileContent(&chunk, path) || !chunk.buffer) return 0;
    return _loadFromContent(path, chunk.buffer, chunk.size);
}

int ZuAsvLoader::_loadFromContent(const char* path, const char* buffer, int size) { return 0; }

void ZuAsvLoader::destroy() {
    if (!curveLines) return;
    for (uint32_t i = 0; i < curveLines->size(); ++i) delete (*curveLines)[i];
    delete curveLines;
    curveLines = nullptr;
}
