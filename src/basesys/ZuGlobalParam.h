#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class ZuScene;
class ZuRenderCamera;
class ZuRenderScene;
class BGTexture;

// What the current frame has in common: the scene, camera and render scene
// being worked on, and each scene's camera background texture. Nothing here
// is retained.
class ZuGlobalParam : public ZuGBase {
public:
    explicit ZuGlobalParam(ZuAppMain* app) : ZuGBase(app) {}

    ZuScene* activeScene = nullptr;
    ZuRenderCamera* activeCamera = nullptr;
    ZuRenderScene* activeRenderScene = nullptr;

    // Keeps an existing entry: the first background to enter a scene wins.
    void setBgTexture(const char* sceneName, BGTexture* texture);
    BGTexture* getBgTexture(const char* sceneName);
    void removeBgTexture(const char* sceneName);
    void clear();

private:
    qz::map<qz::string, BGTexture*> m_bgTextures;
};
