#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/ZuLock.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class ZuDataGenCamera;

// The camera source of every scene, by scene name, made on first request.
// Host threads ask for sources while the tick walks them, so the map is locked.
class ZuDataCameraScene : public ZuGBase {
public:
    explicit ZuDataCameraScene(ZuAppMain* app);
    ~ZuDataCameraScene() override;

    ZuDataGenCamera* getDataGenCamera(const char* sceneName);
    // Notices every scene's source, in scene-name order.
    void noticeListener(float delta);
    void clear();

private:
    qz::map<qz::string, ZuDataGenCamera*> m_cameras;
    ZuLock m_lock;
};
