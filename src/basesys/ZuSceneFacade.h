#pragma once

#include "basesys/qzString.h"

class ZuAppMainAsync;
class CBrockHelp;

// A facade with one fixed scene over the engine that owns its GL, for a
// host that hands camera frames in its own memory and takes the finished
// picture back in the same memory. Ol2 and qzbrock are its two flavours.
//
// Order: createEngine, addSearchPath, startEngine, setCameraDsp, frames
// (pushDetectData, pushCameraData), stopEngine, destroyEngine. Frames
// before startEngine or after stopEngine are dropped with a log line.
class ZuSceneFacade {
public:
    explicit ZuSceneFacade(const char* sceneName) : scene(sceneName) {}
    virtual ~ZuSceneFacade();
    ZuSceneFacade(const ZuSceneFacade&) = delete;
    ZuSceneFacade& operator=(const ZuSceneFacade&) = delete;

    void createEngine();
    void addSearchPath(const char* path);
    void destroyEngine();
    // format takes no part: setCameraDsp names it.
    void startEngine(int format, int width, int height, float angle);
    void stopEngine();
    // Camera size, angle and format (0 NV21, 1 NV12, 2 YV12, 3 I420); the
    // output has the camera's format.
    void setCameraDsp(int format, int width, int height, float angle);
    // A face record of the engine's back end; its length comes from its count.
    void pushDetectData(const void* data);
    // Reads the frame from data and, once an effect is ready, writes the
    // picture back into it (width x height x 1.5 bytes).
    void pushCameraData(void* data);
    // An empty path clears; the same path again does nothing; a path asked
    // for while another loads is dropped.
    void loadEffect(const char* path);
    void clearEffect();
    void delEffect();

    const char* sceneName() const { return scene.c_str(); }
    ZuAppMainAsync* getEngine() const { return engine; }
    CBrockHelp* getHelp() const { return help; }
    // 1 (default): frames run on the caller's thread inside pushCameraData;
    // anything else: on the engine's own thread. Set before startEngine.
    void setSyncMode(int mode);

    // The chroma row stride of a width: half of it, rounded as the camera
    // pads rows, (width / 2 + 15) & ~15.
    static int chromaStride(int width) { return (width / 2 + 15) & ~15; }

protected:
    // The flavour's own step at the end of startEngine, and before the stop.
    virtual void afterStart(int width, int height) {}
    virtual void beforeStop() {}
    // Push, fetch and render of one frame; qzbrock repacks padded frames.
    virtual void processFrame(void* data, int width, int height);
    // True when the engine exists, is the threaded kind and is enabled.
    bool usable(const char* call) const;
    bool running(const char* call) const;

    qz::string scene;
    ZuAppMainAsync* engine = nullptr;
    CBrockHelp* help = nullptr;
};
