#pragma once

#include "basesys/ZuObject.h"

class ZuAppMain;
class ZuDataSwap;
struct AAssetManager;

// The one door through which a host talks to a running engine. Its methods
// test the engine state, build an operation and push it, so that the change
// happens on the render thread; the camera path instead copies straight into
// swap buffers. Any thread may call. Owned by ZuAppMain and deleted, not
// released.
class ZuAppNative : public ZuObject {
public:
    // Printed (to standard output) when a sized push does not match the frame size.
    static constexpr const char* kWrongFrameLength = "视频流长度不一致,请检查后,再调用VesperSDK";

    explicit ZuAppNative(ZuAppMain* app) : app(app) {}
    ~ZuAppNative() override = default;

    ZuAppMain* getApp() const { return app; }

    // One camera frame for a scene. Size and format come from the engine's
    // configuration (the scene's camera record and the camera format), not
    // from the caller. The sized form drops a frame whose length differs.
    // The swap form reads frames from the host's swap from now on, no copy.
    void pushCameraData(const char* sceneName, const void* data);
    void pushCameraData(const char* sceneName, const void* data, int length);
    void pushCameraData(const char* sceneName, const void* data, ZuDataSwap* swap);

    void setAssetsManager(AAssetManager* manager);

protected:
    // Frame bytes for the scene, or -1 when the engine is not serving frames.
    int frameSizeFor(const char* sceneName, int* width, int* height, int* format) const;

    ZuAppMain* app;
};
