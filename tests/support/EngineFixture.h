#pragma once

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "operate/ZuOperateBase.h"
#include "operate/ZuOperateChangeDetectDataType.h"
#include "operate/ZuOperateCreateLogicScene.h"
#include "operate/ZuOperateMgr.h"
#include "scene/ZuAdaptObj.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/GLTest.h"

#include <string>
#include <vector>

// A fixture with an engine started as a host starts one, on the fixture's GL
// context, and stopped after the test. GLBase picks the ES version.
template <class GLBase>
class EngineFixture : public GLBase {
protected:
    // Folders searched for resources, in this order, before the engine's own.
    virtual std::vector<std::string> resourceRoots() const { return {}; }
    // The facade class the test drives; a fixture may pick a subclass.
    virtual ZuAppMain* makeApp() const { return new ZuAppMain(); }

    void SetUp() override {
        GLBase::SetUp();
        app = makeApp();
        app->init();
        for (const std::string& root : resourceRoots()) app->addRespath(root.c_str());
        app->initZuBase();
    }
    void TearDown() override {
        if (!app) return;
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
        app = nullptr;
    }

    // Hands an operation over as a host thread does, dropping our reference.
    void push(ZuOperateBase* op) {
        app->getGlobalMgr()->getOperateMgr()->pushOperate(op);
        op->release();
    }
    // A square scene whose camera, window and design are all `size` pixels,
    // upright, fed by an FP tracker unless told otherwise; after one frame.
    ZuScene* createSquareScene(const char* name, int size, bool fpFaces = true) {
        Camera* camera = app->getGlobalMgr()->getConfig()->getCamera(name);
        camera->width = size;
        camera->height = size;
        camera->angle = 0;
        push(new ZuOperateCreateLogicScene(app, name, size, size, size, size, SCALE_MODE_FULL));
        if (fpFaces) push(new ZuOperateChangeDetectDataType(app, DETECTTYPE_FP));
        frame();
        return app->getGlobalMgr()->getSceneMgr()->getScene(name);
    }
    // One host frame: tick, then draw everything.
    void frame() {
        app->update();
        app->directrender("");
    }

    ZuAppMain* app = nullptr;
};

using EngineTest = EngineFixture<GLTest>;

// The engine's own resource folder of the source tree.
inline std::string sourceAssets() { return std::string(QZ_SOURCE_DIR) + "/assets/"; }
