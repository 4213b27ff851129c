#pragma once

#include "basesys/ZuLock.h"
#include "basesys/ZuRefObject.h"
#include "basesys/qzString.h"

class ZuAppMain;
class DataChunk;
class ZuPboObject;

// One named image. The object exists as soon as someone asks for it; the
// pixels arrive later (decoded on the load thread, or pushed every frame for
// camera planes) and wait in a CPU copy until the GL thread commits them at
// the first use. The lock guards only that CPU side: everything else is used
// on the GL thread.
class ZuTexture : public ZuRefObject {
public:
    explicit ZuTexture(ZuAppMain* app);
    ~ZuTexture() override;

    virtual void zuinit();
    virtual void zudestroy();
    // Makes the GL name (no storage).
    virtual void apply();
    // Makes the GL name with the image.
    virtual void apply(void* pixels);
    // Replaces the whole image of the existing name.
    virtual void fillData(void* pixels);
    // Stores a CPU copy for the next commit; any thread. size 0: derived from
    // the size and pixel format. keep: the copy survives the commit
    // (streaming textures reuse the buffer).
    virtual void setData(void* pixels, int size, bool keep);
    // GL thread: uploads a waiting CPU copy.
    virtual void commit();
    virtual bool getbLoad();
    virtual void setbLoad(bool loaded);

    void setname(const char* newName) { name = newName; }
    const char* getname() const { return name.c_str(); }
    int getuid() const { return uid; }
    int gettype() const { return type; }
    void settype(int value) { type = value; }
    int getwidth() const { return width; }
    void setwidth(int value) { width = value; }
    int getheight() const { return height; }
    void setheight(int value) { height = value; }
    int getinformate() const { return informate; }
    void setinformate(int value) { informate = value; }
    int getdataformate() const { return dataformate; }
    void setdataformate(int value) { dataformate = value; }
    bool getenableMipMaps() const { return enableMipMaps; }
    void setenableMipMaps(bool value) { enableMipMaps = value; }
    int getid() const { return id; }
    // Wraps a GL name owned by someone else; it is never deleted here.
    void setid(int value);
    bool isExternalId() const { return externalId; }
    // Exchanges the GL names (with their ownership) of two textures; the
    // framebuffer ping-pong step.
    void exchangeName(ZuTexture* other);
    bool isAlive() const { return alive; }
    // True while a CPU copy waits (or is kept) for upload.
    bool hasData();


protected:
    class ZuLiveObjects* live = nullptr;
    // Bytes the image needs in dataformate; 0 for an unknown format.
    int imageBytes() const;
    // Uploads data into id (whole image); caller holds lock. False when the
    // copy is too small for the image, which is then refused.
    bool uploadLocked();
    void releaseDataLocked();

    qz::string name;
    int uid = -1;
    int type;
    int width = 1;
    int height = 1;
    int informate;
    int dataformate;
    bool enableMipMaps = false;
    ZuAppMain* app;
    DataChunk* data = nullptr;
    int dataBytes = 0;  // valid bytes in data (its buffer only grows)
    bool dirty = true;
    bool keepData = false;
    ZuLock lock;
    bool bLoad = false;
    ZuPboObject* pbo0 = nullptr;
    ZuPboObject* pbo1 = nullptr;
    int id = -1;
    bool externalId = false;
    bool alive = false;
    // Size and format of the storage behind id, so that a frame of the same
    // shape goes up with glTexSubImage2D and a new shape reallocates.
    int storedWidth = 0;
    int storedHeight = 0;
    int storedFormat = 0;
};
