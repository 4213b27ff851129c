#include "render/ZuRenderPickReadDataObject.h"

#include "render/ZuRenderCmdReadPixelPicupData.h"
#include "render/ZuRenderScene.h"

void ZuRenderPickReadDataObject::pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) {
    if (!scene) return;
    ZuRenderCmdReadPixelPicupData* cmd = new ZuRenderCmdReadPixelPicupData(pixelSwap, pointSwap);
    cmd->setMesh(mesh);
    cmd->setMaterial(material);
    cmd->setName(label);
    scene->pushRenderCmd(stream, cmd);
}
