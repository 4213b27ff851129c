#pragma once

#include "scene/ZuNode.h"

class ZuAdaptObj;
class ZuFboObject;
class ZuRenderScene;
class ZuVesperObj;

// One logical view of the camera image, named by the host: the root of a
// tree of nodes, with its own offscreen target (always portrait: the smaller
// size is the width) and its own render scene, drawn to the window at the end
// of each frame.
class ZuScene : public ZuNode {
public:
    explicit ZuScene(ZuAppMain* app);
    ~ZuScene() override;

    // The four kinds of target: own framebuffer, multisampled, the host's
    // framebuffer, the host's texture.
    virtual void sceneinit(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight);
    virtual void sceneinitmsaa(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight);
    void sceneinitwithoutfbo(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight,
                             unsigned fboId);
    void sceneinitwithouttexfbo(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight,
                                unsigned textureId);
    void scenedestroy();

    bool procEvent(ZuEvent*) override { return true; }
    void update(float delta) override;
    void render() override;

    // Makes this the scene that nodes record into, and tells the active
    // camera whether the picture is mirrored.
    void active();
    void unactive();

    void setScaleMode(int mode);
    void setMirror(bool mirror);
    bool getMirror() const;

    ZuFboObject* getFbo() const;
    ZuFboObject* getVesperFbo() const { return getFbo(); }
    ZuVesperObj* getVesper() const { return vesper; }
    ZuAdaptObj* getAdapt() const { return adapt; }
    ZuRenderScene* getRenderScene() const { return renderScene; }
    int getWinWidth() const { return winWidth; }
    int getWinHeight() const { return winHeight; }
    int getSceneWidth() const { return sceneWidth; }
    int getSceneHeight() const { return sceneHeight; }
    bool isOuterTarget() const { return outerTarget; }

private:
    // What the four kinds share before and after making the target.
    void begin(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight, bool outer);
    void finish();
    int portraitWidth() const;
    int portraitHeight() const;

    ZuAdaptObj* adapt = nullptr;
    ZuVesperObj* vesper = nullptr;
    int winWidth = 1, winHeight = 1;
    int sceneWidth = 1, sceneHeight = 1;
    bool outerTarget = false;
    ZuRenderScene* renderScene = nullptr;
};
