#include "render/object/ZuReadPixelRenderObjDataOut.h"

#include "render/command/ZuRenderCmdReadPixelOutCache.h"
#include "render/command/ZuRenderScene.h"

void ZuReadPixelRenderObjDataOut::setParam(const char* name, int outWidth, int outHeight, int outFormat) {
    sceneName = name ? name : "";
    width = outWidth;
    height = outHeight;
    format = outFormat;
}

void ZuReadPixelRenderObjDataOut::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdReadPixelOutCache* cmd = new ZuRenderCmdReadPixelOutCache(app, cache, format, width, height);
    cmd->setMesh(mesh);
    cmd->setMaterial(material);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
