#include "render/ZuBlitFboRenderObject.h"

#include "render/ZuRenderCmdFboBlit.h"
#include "render/ZuRenderScene.h"

void ZuBlitFboRenderObject::setBlitFboObject(ZuFboObject* src, ZuFboObject* dest, int blitWidth, int blitHeight) {
    srcFbo = src;
    destFbo = dest;
    width = blitWidth;
    height = blitHeight;
}

void ZuBlitFboRenderObject::setNames(const char* srcName, const char* destName) {
    srcFboName = srcName ? srcName : "";
    destFboName = destName ? destName : "";
}

void ZuBlitFboRenderObject::pushCmd(ZuRenderScene* scene, int stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdFboBlit* cmd = new ZuRenderCmdFboBlit(destFbo, srcFbo, width, height);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
