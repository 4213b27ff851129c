#include "render/fbo/ZuBlitFboRenderObject.h"

#include "platform/ZuLog.h"
#include "render/fbo/ZuFboObject.h"
#include "render/command/ZuRenderCmdFboBlit.h"
#include "render/command/ZuRenderScene.h"

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

void ZuBlitFboRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    if (!ZuFboObject::isGles3(app)) {
        QZLOGW("blit \"%s\" refused: framebuffer blits need GL ES 3", label ? label : "");
        return;
    }
    ZuRenderCmdFboBlit* cmd = new ZuRenderCmdFboBlit(destFbo, srcFbo, width, height);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
