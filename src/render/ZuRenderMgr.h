#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class ZuRenderData;
class ZuRenderScene;

// The render scenes of an engine by name, and the shared screen rectangles.
class ZuRenderMgr : public ZuGBase {
public:
    explicit ZuRenderMgr(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuRenderMgr() override;

    // Makes the shared rectangles (their buffers upload at the first draw).
    void init();
    // The rectangles go first, then every scene.
    void destroy();
    void update(float) {}

    // The existing scene of the name, or a new one that the map owns.
    ZuRenderScene* createRenderScene(const char* name);
    ZuRenderScene* getRenderScene(const char* name) const;
    void destroyRenderScene(const char* name);
    void destroyRenderScene(ZuRenderScene* scene);
    // Replays one scene, or every scene in name order for the empty name. False
    // only when there is no scene at all; an unknown name replays nothing.
    bool renderScene(const char* name);
    void clear();

    ZuRenderData* getRenderData() const { return renderData; }
    // The engine's shared rectangles, or null before its render manager exists.
    static ZuRenderData* renderDataOf(ZuAppMain* app);
    int getSceneCount() const { return static_cast<int>(scenes.size()); }

private:
    void replay(ZuRenderScene* scene);

    qz::map<qz::string, ZuRenderScene*> scenes;
    ZuRenderData* renderData = nullptr;
};
