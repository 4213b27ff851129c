#pragma once

#include "data/DETECTTYPE.h"

class ZuAppMainWrap;

enum TARN_CAMERA_FORMATE { TARN_CAMERA_NV21 = 0, TARN_CAMERA_NV12 = 1, TARN_CAMERA_YV12 = 2, TARN_CAMERA_I420 = 3 };

// A flat facade over ZuAppMainWrap for hosts that bind one function per
// call: life cycle, settings, scene recipes, frames and effects. Every call
// is a no-op (logged) before initilize and after destroy.
//
// Order: initilize, settings, startEngine, a scene recipe, then update and
// frames on the host's GL thread; stopEngine, destroy.
class qztarn {
public:
    qztarn() = default;
    ~qztarn();
    qztarn(const qztarn&) = delete;
    qztarn& operator=(const qztarn&) = delete;

    // Life.
    void initilize();
    void destroy();
    void startEngine();
    void stopEngine();
    void update();
    void updateEffectRes();
    void directrender(const char* sceneName);
    void setFirstGetDert(bool first);

    // Settings.
    void addSearchPath(const char* path);
    void setGlVersion(int version);
    void setDectectType(DETECTTYPE type) { detectType = type; }
    DETECTTYPE getDetectType() const { return detectType; }
    void setUseDataSwapOnNode(bool use);
    void enableOutpixelBuffer() { outPixelBuffer = true; }
    void setCameraDsp(int format, int outStreamType, const char* sceneName, int width, int height, float angle);

    // Scene recipes: a full-window scene, mirrored, with its background and outputs.
    void createLogicScene(const char* name, int winWidth, int winHeight, int sceneWidth, int sceneHeight, bool mirror);
    void createLogicWin(const char* name, int fbo, int winWidth, int winHeight, int sceneWidth, int sceneHeight);
    void createLogicOffWin(const char* name, int format, int winWidth, int winHeight, int sceneWidth, int sceneHeight);
    void createLogicOffWinWithTexture(const char* name, int texture, int winWidth, int winHeight, int sceneWidth,
                                      int sceneHeight);
    void createLogicOffWinWithTextureWithInvert(const char* name, int texture, int winWidth, int winHeight,
                                                int sceneWidth, int sceneHeight, bool invert);
    void destoryLogicScene(const char* name);
    void setEngineSceneMirror(const char* name, bool mirror);
    void setCameraBgNode(const char* name, int format);
    void setOutStreamNode(const char* name, int type, bool mirror, bool invert);
    void createOutputTextureNode(const char* name, const char* node, unsigned texture, int format, bool mirror,
                                 bool invert);

    // Frames.
    void pushDetectData(const char* name, const void* data, int size);
    void pushCameraData(const char* name, const void* data, int size);
    void fetchRenderData(const char* name, void* target);
    void fetchRenderDataOnDataTRransNode(const char* scene, const char* node, void* target);
    unsigned getTexture(const char* name);

    // Effects.
    void loadEffect(const char* name, const char* path);
    void loadEffect(const char* name, const char* path, int resUID);
    void loadEffect(const char* name, const char* path, int resUID, int slot);
    void loadGame(const char* name, const char* gameName, const char* path, int resUID, int slot);
    void loadEffects(const char* name, const char* path, int resUID, int slot);
    void clearEffect(const char* scene, const char* path, int resUID);

    // Parameters.
    void updateIntentity(const char* name, int resUID, float value);
    void setFaceBeautifyValue(float value, int resUID, const char* scene);
    void updateSlimStrength(const char* name, int resUID, float v0, float v1, float v2, float v3);
    void setFaceBeautifyAdjust(float smooth, float white, float a, float b, const char* node);
    void setFaceBeautifyGainAdjust(float value, const char* node);
    void setSlimAdjust(float, const char*) {}
    void setShortAdjust(float, const char*) {}
    void setShrinkNoseAdjust(float, const char*) {}
    void setShrinkMouthAdjust(float, const char*) {}

    // Textures and input.
    void setOutputTexture(unsigned texture, const char* node, int width, int height);
    void setBackgroundTexture(const char* node, int texture, int width, int height);
    void testDraw(const char* scene);

    ZuAppMainWrap* getApp() const { return app; }

private:
    bool ready(const char* call) const;
    // The output texture node every recipe uses.
    void outTex(const char* name, unsigned texture);

    ZuAppMainWrap* app = nullptr;
    bool useDataSwapOnNode = false;
    bool outPixelBuffer = false;
    int outType = 1;
    int format = 0;
    DETECTTYPE detectType = DETECTTYPE_ST;
};
