#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class ZuRenderCamera;
class ZuScene;

// The logic scenes by name. Each frame every scene in name order becomes
// active, walks its tree (recording its commands) and becomes inactive.
class ZuSceneMgr : public ZuGBase {
public:
    explicit ZuSceneMgr(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuSceneMgr() override;

    void init() {}
    void destroy();

    // An existing name gives the existing scene, whatever sizes are asked.
    ZuScene* createScene(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight);
    // Drawing into the host's framebuffer or texture.
    ZuScene* createOutFBOScene(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight,
                               unsigned fboId);
    ZuScene* createOutTexScene(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight,
                               unsigned textureId);
    bool destroyScene(const char* name);
    ZuScene* getScene(const char* name) const;
    int getSceneCount() const { return static_cast<int>(scenes.size()); }

    void setActiveCamera(ZuRenderCamera* camera);
    void update(float delta);

    void setFixedFrameRate(int rate) { fixedFrameRate = rate; }
    int getFixedFrameRate() const { return fixedFrameRate; }

private:
    // Stores a new scene and makes it active when none is.
    ZuScene* adopt(ZuScene* scene);

    qz::map<qz::string, ZuScene*> scenes;
    int fixedFrameRate = -1;
};
