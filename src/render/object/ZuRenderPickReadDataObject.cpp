#include "render/object/ZuRenderPickReadDataObject.h"

#include "render/command/ZuRenderCmdReadPixelPicupData.h"
#include "render/command/ZuRenderScene.h"

void ZuRenderPickReadDataObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdReadPixelPicupData* cmd = new ZuRenderCmdReadPixelPicupData(pixelSwap, pointSwap);
    cmd->setMesh(mesh);
    cmd->setMaterial(material);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
