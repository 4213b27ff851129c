#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class ZuTexture;
class ZuTextureSet;

// The cache of named images, one reference per entry. Plain getTexture loads
// files on the load thread; the GL texture is made at first use. Everything
// here runs on the GL thread.
//
// Ageing: removeUnuseTexture frees an entry that the cache alone holds. A
// look-up is no hold: whoever samples an image keeps a reference on it (a
// material's slot, a framebuffer's colour texture), and the commands of a
// frame hold what they borrow until they have replayed.
class ZuTexMgr : public ZuGBase {
public:
    explicit ZuTexMgr(ZuAppMain* app);
    ~ZuTexMgr() override;

    void init();
    void destroy();

    // A hit returns the cached object (mipmaps is then ignored); a miss gives
    // null unless create, else a new texture whose file loads on the load thread.
    ZuTexture* getTexture(const char* path, bool create = true, bool mipmaps = false);
    // As getTexture, but a new texture is decoded at once on this thread.
    ZuTexture* getTextureSync(const char* path, bool create = true, bool mipmaps = false);

    ZuTexture* _createTexture(const char* path, bool sync, bool mipmaps);
    void _loadTextureSync(ZuTexture* texture, const char* path);
    void _loadTextureAsync(ZuTexture* texture, const char* path);

    // Outside the cache and owned by the caller; GL thread. Used by framebuffers.
    ZuTexture* createInternalTexture(int width, int height, int format);
    static ZuTexture* createInternalTexture(ZuAppMain* app, int width, int height, int format);
    // The same around a GL name that stays the host's.
    ZuTexture* createInternalTextureWithTexID(int texId, int width, int height, int format);
    static ZuTexture* createInternalTextureWithTexID(ZuAppMain* app, int texId, int width, int height,
                                                     int format);

    // These three give null when the name is taken.
    ZuTexture* createCameraTexture(const char* name);
    ZuTexture* bindCameraTexture(const char* name, int texId, int width, int height);
    ZuTexture* createNullTextureWithData(const char* name, int width, int height, int dataFormat,
                                         int inFormat, void* pixels);

    void removeTexture(ZuTexture* texture);
    void removeTexture(const char* name);
    // Once per tick, after the scenes have recorded.
    void removeUnuseTexture();
    bool hasTexture(const char* name);
    void clear();
    int size() const { return static_cast<int>(textures.size()); }

    // Reads a JSON atlas description; returns its page (with the regions in
    // the cache under baseDir's directory + "/" + frame file name), or null.
    ZuTextureSet* loadImgPList(const char* plistPath, const char* baseDir);

private:
    ZuTexture* lookup(const char* name);
    void insert(ZuTexture* texture);
    ZuTextureSet* _createTextureSet(const char* key, bool sync);

    qz::map<qz::string, ZuTexture*> textures;
    bool async = true;
};
