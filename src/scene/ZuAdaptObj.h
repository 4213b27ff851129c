#pragma once

#include "basesys/ZuGBase.h"
#include "render/math/ZuMat4.h"

class ZuMaterial;
class ZuRenderCamera;
class ZuRenderMesh;
class ZuRenderObject;
class ZuRenderScene;
class ZuScene;

// How a scene's rectangle meets the window: 0 at its own size, centred;
// 1 stretched to the window in each axis.
enum SCALE_MODE { SCALE_MODE_CENTER = 0, SCALE_MODE_FULL = 1 };

// Draws a scene's finished target onto the window (stream 26), placed by the
// scale mode and mirrored unless told otherwise.
class ZuAdaptObj : public ZuGBase {
public:
    explicit ZuAdaptObj(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuAdaptObj() override;

    void init(int winWidth, int winHeight, int sceneWidth, int sceneHeight);
    void destroy();
    void update(float delta, ZuScene* scene);
    void render(ZuRenderScene* scene);

    void setMirror(bool value) { mirror = value; }
    bool getMirror() const { return mirror; }
    void setScaleMode(int mode) { scaleMode = mode; }
    int getScaleMode() const { return scaleMode; }
    const ZuMat4& getModelMatrix() const { return model; }

private:
    bool mirror = true;
    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    ZuRenderObject* renderObject = nullptr;
    ZuRenderCamera* camera = nullptr;
    int winWidth = 1, winHeight = 1, sceneWidth = 1, sceneHeight = 1;
    ZuMat4 model;
    int scaleMode = SCALE_MODE_CENTER;
};
