#pragma once

#include "basesys/ZuGBase.h"

class ZuFboBeginRenderObject;
class ZuFboEndRenderObject;
class ZuFboObject;
class ZuRenderCamera;
class ZuRenderScene;

// The offscreen target a scene's tree renders into, with the camera that
// maps scene units onto it. Its begin and end objects bracket every other
// stream of the scene (streams 6 and 23).
class ZuVesperObj : public ZuGBase {
public:
    explicit ZuVesperObj(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuVesperObj() override;

    // The four kinds of target: the engine's own with a swap texture, a
    // multisampled one, the host's framebuffer, the host's texture.
    void init(const char* name, int width, int height, int uid);
    void initmsaa(const char* name, int width, int height, int uid);
    void initwithoutfbo(const char* name, int width, int height, int uid, unsigned fboId);
    void initwithouttexfbo(const char* name, int width, int height, int uid, unsigned textureId);
    void destroy();

    void update(float delta);
    void render(ZuRenderScene* scene);

    ZuFboObject* getFbo() const { return fbo; }
    ZuRenderCamera* getCamera() const { return camera; }
    int getWidth() const { return width; }
    int getHeight() const { return height; }

private:
    // What every form does before making its target; false when a target exists.
    bool prepare(int w, int h, bool setActiveCamera);
    void adopt(ZuFboObject* target, float r, float g, float b, float a);
    static void targetName(char* out, int size, int uid);

    int width = 1;
    int height = 1;
    ZuRenderCamera* camera = nullptr;
    ZuFboObject* fbo = nullptr;
    ZuFboBeginRenderObject* beginObject = nullptr;
    ZuFboEndRenderObject* endObject = nullptr;
};
