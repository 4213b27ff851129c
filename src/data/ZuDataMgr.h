#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/ZuLock.h"

class NodeIDPoolMgr;
class ZuDataCameraScene;
class ZuDataGenCamera;
class ZuDataGenFace;
class ZuDataGenAS;
class ZuDataGenST;
class ZuDataGenFP;
class ZuDataGenSelf;

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

    // Releases the face generator of the old back end and makes the one of
    // the new (none for DETECTTYPE_NONE or an unknown type). Render thread.
    void setDetectDataType(int detectType);
    int getDetectDataType() const { return m_detectType; }
    // The generator of the current back end, or null when another is current.
    ZuDataGenAS* getDataGenAS() const { return m_genAS; }
    ZuDataGenST* getDataGenST() const { return m_genST; }
    ZuDataGenFP* getDataGenFP() const { return m_genFP; }
    ZuDataGenSelf* getDataGenSelf() const { return m_genSelf; }
    // For a host thread: the generator of that back end, retained (the caller
    // releases it), or null when the back end is not current. A detector of
    // one back end must never parse into another's generator, whose blocks
    // have other sizes, while a change of back end is half done.
    ZuDataGenFace* retainFaceGen(int detectType);

private:
    NodeIDPoolMgr* m_nodeIDPool = nullptr;
    ZuDataCameraScene* m_cameraScene = nullptr;
    int m_detectType = 0;
    ZuDataGenAS* m_genAS = nullptr;
    ZuDataGenST* m_genST = nullptr;
    ZuDataGenFP* m_genFP = nullptr;
    ZuDataGenSelf* m_genSelf = nullptr;
    // Guards the generator fields against a host thread's retainFaceGen.
    ZuLock m_genLock;
};
