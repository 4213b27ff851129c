#pragma once

#include "basesys/Camera.h"
#include "basesys/CfgFilter.h"
#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>

class ZuFileMgr;

// The settings of one engine: design sizes, a camera record per scene, the
// host's formats, the effect queue's limits and the item-type switches.
// Built-in defaults first; the file "shader/olcfg.json" overlays them at
// start. Not locked: written on the render thread or before start.
class ZuConfig : public ZuGBase {
public:
    static constexpr const char* kConfigFile = "shader/olcfg.json";
    static constexpr const char* kDefaultCamera = "_def_camera0";

    explicit ZuConfig(ZuAppMain* app);
    ~ZuConfig() override;

    // Back to the built-in sizes and formats; the default camera record gets
    // its default frame and an adapt scale of 1.
    void init();
    // Sizes, formats, adaptmode and glversion back to their defaults; the
    // camera records stay.
    void destroy();

    // Overlays the configuration file found through the engine's file manager.
    void loadConfig();
    // The same with a given file manager. False when the file is missing or
    // unusable; then the defaults hold and one line says why.
    bool loadConfigFrom(ZuFileMgr* files);
    // Overlays the JSON text (len bytes, no terminator needed). Keys of the
    // wrong JSON type are skipped and reported together; the rest apply.
    bool loadConfigText(const char* text, size_t len);

    // The record of a scene, made with the defaults on first use: never null.
    // A null name counts as the empty name.
    Camera* getCamera(const char* name);
    // Stores the frame of a scene's camera and, in adaptmode 1, its ratio to
    // the design size.
    void setCameraDsp(const char* name, int frameWidth, int frameHeight, int frameAngle);

    int getDetectType() const { return detectType; }
    void setDetectType(int type) { detectType = type; }
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    void setSize(int newWidth, int newHeight) { width = newWidth; height = newHeight; }
    int getDesignWidth() const { return designWidth; }
    int getDesignHeight() const { return designHeight; }
    void setDesignSize(int newWidth, int newHeight) { designWidth = newWidth; designHeight = newHeight; }
    int getDesignImageWidth() const { return designImageWidth; }
    int getDesignImageHeight() const { return designImageHeight; }

    // Plain fields, read and written by the managers named beside them.
    qz::map<std::string, Camera*> cameras;
    // CAMERAIMAGEFORMATE of pushed frames: set at a frame, read by the host
    // threads that push frames, hence atomic.
    std::atomic<int> cameraImageFormat{8};
    int faceBeautyType = 6;        // skin-smoothing shader quality
    int adaptmode = 1;             // 1: setCameraDsp updates the adapt scale
    int glversion = 0x20000;       // packed GL version; 0x30000 and up enables ES 3 paths
    bool useDataSwapOnNode = false;
    // Reads below ES 3 draw first and then read into the node's swap. Only
    // code sets it: the file's old "usepbo" key is ignored.
    bool usepbo = false;
    bool screenAnimation = false;
    bool alwaysShowOne = false;
    uint32_t maxAddQueueNum = 0;   // effect queue capacity; only the file sets it
    int playDeltaTime = 0;         // seconds between queued effects; only the file sets it
    CfgFilter filter;

private:
    void resetDefaults();
    void adaptCamera(Camera* camera) const;

    int detectType = 0;
    int width = 720;
    int height = 1280;
    int designWidth = 720;
    int designHeight = 1280;
    int designImageWidth = 700;
    int designImageHeight = 1004;
};
