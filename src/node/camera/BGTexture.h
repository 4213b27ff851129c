#pragma once

#include "basesys/ZuRefObject.h"
#include "node/camera/BGType.h"

class ZuAppMain;
class ZuFboBeginRenderObject;
class ZuFboEndRenderObject;
class ZuFboObject;
class ZuMaterial;
class ZuRenderData;
class ZuRenderMesh;
class ZuRenderObject;
class ZuRenderScene;
class ZuTexture;

// The camera image of one scene: the plane textures a frame is uploaded
// into, and the pass that converts them once a frame into an RGBA target of
// camera size that every later pass reads.
class BGTexture : public ZuRefObject {
public:
    BGTexture() = default;
    ~BGTexture() override;

    virtual void createTexture(ZuAppMain* app, BGType type, int uid, int width, int height, float rotation);
    virtual void destroyTexture();
    virtual void update(float dt);
    virtual void render(ZuRenderScene* scene, int stream, const char* label);

    void setYTexture(ZuTexture* texture) { assign(yTex, texture); }
    void setUTexture(ZuTexture* texture) { assign(uTex, texture); }
    void setVTexture(ZuTexture* texture) { assign(vTex, texture); }
    void setUVTexture(ZuTexture* texture) { assign(uvTex, texture); }
    void setRGBATexture(ZuTexture* texture) { assign(rgbaTex, texture); }
    void setBGRATexture(ZuTexture* texture) { assign(bgraTex, texture); }
    // A still picture for the background (through the texture cache).
    void createNorTexture(ZuAppMain* app, const char* path);

    BGType getType() const { return type; }
    ZuFboObject* getFbo() const { return fbo; }
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    float getRotation() const { return rotation; }
    ZuMaterial* getMaterial() const { return material; }
    ZuTexture* getYTexture() const { return yTex; }
    ZuTexture* getUTexture() const { return uTex; }
    ZuTexture* getVTexture() const { return vTex; }
    ZuTexture* getUVTexture() const { return uvTex; }
    ZuTexture* getRGBATexture() const { return rgbaTex; }
    ZuTexture* getBGRATexture() const { return bgraTex; }

    // The screen rectangle that turns the camera image upright for a camera
    // record's angle; any other angle keeps current.
    static ZuRenderMesh* meshForAngle(ZuRenderData* data, int angle, ZuRenderMesh* current);
    static ZuRenderData* renderDataOf(ZuAppMain* app);
    // Points object at this image through material, turned upright by the
    // camera record's angle of the scene.
    void placeOn(ZuAppMain* app, const char* sceneName, ZuRenderObject* object, ZuMaterial* material);

protected:
    static void assign(ZuTexture*& slot, ZuTexture* texture);
    // Every texture the type draws from exists.
    bool hasPlanes() const;

    BGType type = BG_NONE;
    ZuTexture* rgbaTex = nullptr;
    ZuTexture* bgraTex = nullptr;
    ZuTexture* yTex = nullptr;
    ZuTexture* uvTex = nullptr;
    ZuTexture* uTex = nullptr;
    ZuTexture* vTex = nullptr;
    ZuTexture* norTex = nullptr;
    int width = 1;
    int height = 1;
    float rotation = 0.0f;
    ZuMaterial* material = nullptr;
    ZuRenderObject* renderObject = nullptr;
    ZuFboBeginRenderObject* fboBegin = nullptr;
    ZuFboEndRenderObject* fboEnd = nullptr;
    ZuFboObject* fbo = nullptr;
};
