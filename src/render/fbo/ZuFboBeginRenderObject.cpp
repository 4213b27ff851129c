#include "render/fbo/ZuFboBeginRenderObject.h"

#include "render/fbo/ZuFboObject.h"
#include "render/command/ZuRenderCmdFboBind.h"
#include "render/command/ZuRenderScene.h"

ZuFboBeginRenderObject::~ZuFboBeginRenderObject() { qzSafeRelease(fbo); }

void ZuFboBeginRenderObject::setFbo(ZuFboObject* target) {
    qzAssignRetained(fbo, target);
}

void ZuFboBeginRenderObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdFboBind* cmd = new ZuRenderCmdFboBind(fbo, clearsOnBind());
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
