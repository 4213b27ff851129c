#include "render/object/ZuReadPixelRenderObject.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataSwap.h"
#include "render/fbo/ZuPboMgr.h"
#include "render/fbo/ZuPboObject.h"
#include "render/command/ZuRenderCmdReadPixel.h"
#include "render/command/ZuRenderCmdReadPixelPbo.h"
#include "render/command/ZuRenderCmdReadPixelToNodeDataSwap.h"
#include "render/command/ZuRenderScene.h"

ZuReadPixelRenderObject::~ZuReadPixelRenderObject() {
    releasePbo(pbo0);
    releasePbo(pbo1);
    qzSafeRelease(dataSwap);
}

bool ZuReadPixelRenderObject::isGles3() const {
    ZuConfig* config = configOf(app);
    return config && config->glversion >= 0x30000;
}

void ZuReadPixelRenderObject::releasePbo(ZuPboObject*& pbo) {
    if (!pbo) return;
    if (ZuPboMgr* mgr = pboMgrOf(app)) mgr->destroyPboObject(pbo);
    qzSafeRelease(pbo);
}

void ZuReadPixelRenderObject::createPbo(int pboWidth, int pboHeight) {
    if (!isGles3()) return;
    ZuPboMgr* mgr = pboMgrOf(app);
    if (!mgr) return;
    if (!pbo0) {
        qz::string name = sceneName;
        name += "pbo0";
        pbo0 = mgr->createPboObject(name.c_str(), pboWidth, pboHeight);
        if (pbo0) pbo0->retain();
    }
    if (!pbo1) {
        qz::string name = sceneName;
        name += "pbo1";
        pbo1 = mgr->createPboObject(name.c_str(), pboWidth, pboHeight);
        if (pbo1) pbo1->retain();
    }
}

void ZuReadPixelRenderObject::setParam(int outWidth, int outHeight, int outFormat) {
    width = outWidth;
    height = outHeight;
    format = outFormat;
    createPbo(outWidth, outHeight);
}

void ZuReadPixelRenderObject::setDataSwap(ZuDataSwap* swap) {
    qzAssignRetained(dataSwap, swap);
}

void ZuReadPixelRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdReadPixel* cmd = nullptr;
    if (isGles3()) {
        if (!pbo0 || !pbo1) return;
        ZuPboObject* readPbo = flip ? pbo0 : pbo1;
        ZuPboObject* writePbo = flip ? pbo1 : pbo0;
        cmd = new ZuRenderCmdReadPixelPbo(app, sceneName.c_str(), format, width, height, dataSwap, writePbo, readPbo);
    } else if (ZuConfig* config = configOf(app); config && config->usepbo) {
        cmd = new ZuRenderCmdReadPixelToNodeDataSwap(app, sceneName.c_str(), nodeName.c_str(), format, width, height,
                                                     dataSwap);
    } else {
        cmd = new ZuRenderCmdReadPixel(app, sceneName.c_str(), format, width, height, dataSwap);
    }
    cmd->setMesh(mesh);
    cmd->setMaterial(material);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
