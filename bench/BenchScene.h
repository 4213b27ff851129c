#pragma once

// One engine on the headless ES 3 context with one camera scene, set up as a
// phone host sets it up: NV21 frames in, the scene drawn, RGBA read back into
// memory, glFinish. The benchmarks of passes and face effects put their nodes
// into it and time frame().
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "platform/ZuHeadlessContext.h"
#include "platform/ZuLog.h"
#include "scene/ZuNode.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"

#include <GLES3/gl3.h>

#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <vector>

class BenchScene {
public:
    static constexpr const char* kScene = "bench";

    struct Setup {
        int width = 720;
        int height = 1280;
        int detectType = -1;     // a DETECTTYPE for face records; -1 leaves the default
        int faceBeautyType = 0;  // the skin smoothing's quality; 0 leaves the default
        bool sizeDefaultCamera = false; // also give the default camera record the frame size
        std::initializer_list<const char*> resourceRoots = {};
    };

    explicit BenchScene(const Setup& setup) : width(setup.width), height(setup.height) {
        if (!ZuHeadlessContext::instance().makeCurrent(3)) {
            fprintf(stderr, "headless GL unavailable: %s\n", ZuHeadlessContext::instance().error().c_str());
            std::exit(1);
        }
        ZuLog::setLevel(ZU_LOG_ERROR);
        app = new ZuAppMain();
        app->init();
        for (const char* root : setup.resourceRoots) app->addRespath(root);
        app->initZuBase();
        ZuConfig* config = app->getGlobalMgr()->getConfig();
        config->glversion = 0x30000;
        if (setup.faceBeautyType > 0) config->faceBeautyType = setup.faceBeautyType;
        // Nodes that size themselves from the default camera record see the
        // same picture when it is sized too.
        for (const char* name : {kScene, ZuConfig::kDefaultCamera}) {
            if (name != kScene && !setup.sizeDefaultCamera) continue;
            Camera* camera = config->getCamera(name);
            camera->width = width;
            camera->height = height;
            camera->angle = 0;
        }
        ZuAppNative* native = app->getAppInter();
        native->createLogicSceneFull(kScene, width, height, width, height);
        native->createBGNode(kScene, 1); // NV21
        native->setOutSteamFormate(kScene, 1, true, false);
        if (setup.detectType >= 0) native->setDetectType(static_cast<DETECTTYPE>(setup.detectType));
        // The set-up operations (camera format among them) run in this tick,
        // before the first frame is pushed.
        app->update();
        app->directrender("");
        nv21.assign(static_cast<size_t>(width) * height * 3 / 2, 128);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) nv21[static_cast<size_t>(y) * width + x] = static_cast<uint8_t>((x ^ y) & 0xFF);
        output.resize(static_cast<size_t>(width) * height * 4);
    }
    ~BenchScene() {
        app->setState("bench", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    BenchScene(const BenchScene&) = delete;
    BenchScene& operator=(const BenchScene&) = delete;

    // One host frame: the camera frame (and the face record, if any) pushed,
    // tick, draw, read back.
    void frame() {
        ZuAppNative* native = app->getAppInter();
        native->pushCameraData(kScene, nv21.data(), static_cast<int>(nv21.size()));
        if (!record.empty()) native->setDetectData(kScene, record.data(), static_cast<int>(record.size()));
        app->update();
        app->directrender("");
        native->fetchRenderData(kScene, output.data());
        glFinish();
    }

    // A node made by type name, on the given person when person >= 0, added
    // to the scene; null when either is missing.
    ZuNode* add(const char* type, const char* name, int person = -1) {
        ZuNode* node = app->getGlobalMgr()->getNodeMgr()->getCreator()->createNode(type, kScene, name);
        ZuScene* scene = app->getGlobalMgr()->getSceneMgr()->getScene(kScene);
        if (!node || !scene) return nullptr;
        if (person >= 0) node->setpersonID(person);
        scene->addChild(node);
        return node;
    }

    const int width;
    const int height;
    ZuAppMain* app = nullptr;
    std::vector<uint8_t> nv21;   // a diagonal pattern unless a benchmark sets its own
    std::vector<uint8_t> output;
    std::vector<uint8_t> record; // pushed with every frame when not empty
};
