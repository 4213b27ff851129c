#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/ZuLock.h"
#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "platform/ZuAssetManager.h"

class DataChunk;

// Finds and reads engine files: first among the app's packaged assets, then
// under the search paths the host registered. Callable from any thread; the
// render thread and the load thread both read files.
class ZuFileMgr : public ZuGBase {
public:
    explicit ZuFileMgr(ZuAppMain* app);
    ~ZuFileMgr() override;

    void init();
    // Also forgets the search paths.
    void destroy();

    // A search path is a prefix joined to file names as is, so it ends in a
    // separator, or is the empty string (names are then used unchanged).
    // Adding a path that is already there does nothing.
    void addRespath(const char* path);
    // Removes the first path equal to path.
    void delRespath(const char* path);
    unsigned int getSearchPathNum();

    // Set once, before anything is loaded; assets then win over files.
    void setAssetsManager(AAssetManager* manager) { assetManager = manager; }
    AAssetManager* getAssetsManager() const { return assetManager; }

    // The first search path + name that opens for reading as a regular file,
    // or the empty string.
    qz::string getFileFullName(const char* name);

    // Fills chunk with the bytes of name. False when nothing of that name is
    // found or it cannot be read whole. An empty asset gives true with an
    // empty chunk.
    bool loadFileContent(DataChunk* chunk, const char* name);
    // As loadFileContent, with one byte more that holds 0, so that the buffer
    // is a C string.
    bool loadFileContentStr(DataChunk* chunk, const char* name);

private:
    bool load(DataChunk* chunk, const char* name, bool asText);
    bool loadAsset(DataChunk* chunk, AAsset* asset, const char* name, bool asText);
    bool loadFile(DataChunk* chunk, const char* path, bool asText);

    qz::array<qz::string> searchPaths;
    ZuLock lock;
    AAssetManager* assetManager = nullptr;
};
