#pragma once

#include "basesys/ZuObject.h"
#include "basesys/qzArray.h"
#include "data/DETECTTYPE.h"

class ZuAppMain;
class ZuDataSwap;
struct AAssetManager;
struct SpineHeadRes;

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

    // Scenes. Each pushes an operation that runs in a later frame.
    void createLogicScene(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight);
    // As createLogicScene, stretched to the window.
    void createLogicSceneFull(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight);
    void createInputFBOLogicScene(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight,
                                  unsigned fboId);
    void createOutTexLogicScene(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight,
                                unsigned textureId);
    void destoryLogicScene(const char* name);
    // Also hides or shows at once, so that a hidden scene stops drawing even
    // before the next frame.
    void setSceneVisible(const char* name, bool visible);
    void setSceneMirror(const char* name, bool mirror);
    // At once: the mirror flag of the scene's camera record.
    void setCameraMirror(const char* name, bool mirror);
    // At once, before the scene's first frame: the size of the frames the
    // host will push (the sensor's picture, before turning) and the angle
    // that turns them upright (0, 90, 180 or 270).
    void setCameraDsp(const char* name, int frameWidth, int frameHeight, int frameAngle);

    // Camera backgrounds. hostFormat: 0 NV21, 1 NV12, 2 YV12, 3 I420, 4 RGBA, 5 BGRA.
    void createBGNode(const char* name, int hostFormat);
    void createBGNode(const char* name, int textureId, int pixelFormat, int width, int height);
    void createSeparationBGNode(const char* name, int hostFormat);
    void createSeparationNorBGNode(const char* name, int textureId, int width, int height);
    void createRenderFboNode(const char* name, int fboId);
    // The three numbers take no part: the scene's camera record has the size.
    void setCameraParam(const char* name, int, int, int, int hostFormat);

    // Finished frames out. The scene's output node is name + "_dataout".
    // Copies the last frame read back into target (sized for the node's
    // format); nothing when no frame has arrived yet.
    void fetchRenderData(const char* name, void* target);
    // From now on the node reads back into the host's swap.
    void fetchRenderData(const char* name, void* target, ZuDataSwap* swap);
    void fetchRenderDataOnTransNode(const char* name, const char* nodeName, void* target);
    void openOutRenderData(const char* name);
    void closeOutRenderData(const char* name);
    void setOutSteamInterceptState(const char* nodeName, bool intercept);
    // type: 0 NV12, 1 RGBA, 2 NV21, 3 YV12, 4 I420, 5 BGRA. mirror true keeps
    // the picture as the scene shows it; invert turns it upside down.
    void setOutSteamFormate(const char* name, int type, bool mirror, bool invert);
    void setOutSteamFormateOnTransNode(const char* name, const char* nodeName, int type, bool mirror, bool invert);
    // With an own size; the node starts intercepted (open it to get frames).
    void setOutSteamFormateOnTransNode(const char* name, const char* nodeName, int type, bool mirror, int width,
                                       int height, bool invert);
    void createOutputTextureNode(const char* name, const char* nodeName, unsigned textureId, int pixelFormat,
                                 bool mirror, bool invert);
    void createOutputTextureScaleNode(const char* name, const char* nodeName, int pixelFormat, bool mirror,
                                      bool invert, int width, int height);
    // At once, on an output texture node of that name.
    void setOutData(const char* nodeName, bool mirror, bool invert);
    // Does nothing: kept so that hosts written for the whole interface link.
    // A thumbnail is a scene's scaled output node (createOutputTextureScaleNode).
    void getIconData(const char* name, int width, int height, void* data) {}
    // At once, on the render thread: records the scene's picture, scaled to
    // width x height, into an animated GIF until stopRecordGif. The file is
    // complete once ZuGifMgr::isBusy() turns false.
    void startRecordGif(const char* name, const char* path, int width, int height);
    void stopRecordGif();

    // Effect packages: a directory holding "config.json". The default resUID
    // is 250, the default slot 0; a package loaded into a taken slot under
    // its own resUID replaces itself. Outcomes arrive as parse events.
    void loadEffect(const char* name, const char* path);
    void loadEffect(const char* name, const char* path, int resUID);
    void loadEffect(const char* name, const char* path, int resUID, int slot);
    // As above, with the host's head pictures for the package's skeletal
    // stickers; the caller's array is taken over and left empty.
    void loadEffect(const char* name, const char* path, int resUID, int slot, qz::array<SpineHeadRes>* heads);
    void loadGame(const char* name, const char* gameName, const char* path, int resUID, int slot);
    // Queued: packages play one after another (see the configuration's
    // "maxAddQueueNum" and "playDeltaTime").
    void addEffect(const char* name, const char* path, int resUID, int slot);
    // Drops what waits in the queue; the playing package goes on.
    void clearEffectQueue(const char* name, int);

    // Effects and dials.
    void delEffect(const char* name, const char* path, int resUID);
    // Runs on the calling thread before it returns: call it on the render thread.
    void delEffectInstenImmediately(const char* name, const char* path, int resUID);
    void saveEffect(const char* name, const char* path, int resUID);
    void updateIntensity(const char* name, int resUID, float value);
    void updateSlimStrength(const char* name, int resUID, float value);
    void updateSlimStrengthValue(const char* name, int resUID, float v0, float v1, float v2, float v3);
    void updateFaceBeautifySmooth(const char* name, int resUID, float value);
    void updateFaceBeautify(const char* name, int resUID, float smooth, float white);
    void debugFacePt(const char* name);

    // Events for effect nodes.
    void setActionLocation(int id, float x, float y);
    void setScale(const char* name, int id, float value);

    void setAssetsManager(AAssetManager* manager);

    // Face tracking. The back end changes in a later frame; a record is taken
    // at once on the calling thread (size: its length in bytes; null: no face).
    void setDetectType(DETECTTYPE type);
    void setDetectData(const char* name, const void* data, int size);

protected:
    // Guard of most pushes: running, with an operation manager. A refused
    // call is logged under the name of the facade method that made it.
    bool canPush(const char* call = __builtin_FUNCTION()) const;
    // Guard of the effect methods: not stopping, with an operation manager.
    bool canPushEffect(const char* call = __builtin_FUNCTION()) const;
    // The output node of that name, when the engine serves nodes.
    class ZuDataTransNode* transNode(const char* nodeName, bool needRunning) const;
    // Pushes to the frame queue and lets go of the creator's reference.
    void push(class ZuOperateBase* op);

    // Frame bytes for the scene, or -1 when the engine is not serving frames.
    int frameSizeFor(const char* sceneName, int* width, int* height, int* format) const;

    ZuAppMain* app;
};
