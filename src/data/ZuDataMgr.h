#pragma once

#include "basesys/ZuGBase.h"

class NodeIDPoolMgr;
class ZuDataCameraScene;
class ZuDataGenCamera;

// Holds the engine's data sources and notifies their listeners once a frame:
// camera sources first, so that a tick's planes are in their textures before
// the same tick's face data is delivered. It also owns the node identifier
// pool, so node ids live exactly as long as the data manager does.
class ZuDataMgr : public ZuGBase {
public:
    explicit ZuDataMgr(ZuAppMain* app);
    ~ZuDataMgr() override;

    void init();
    void destroy();
    void update(float delta);

    NodeIDPoolMgr* getNodeIDPool() const { return m_nodeIDPool; }
    // The scene's camera source, made on first request; null before init.
    ZuDataGenCamera* getDataGenCamera(const char* sceneName);

private:
    NodeIDPoolMgr* m_nodeIDPool = nullptr;
    ZuDataCameraScene* m_cameraScene = nullptr;
};
