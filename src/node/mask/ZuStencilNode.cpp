#include "node/mask/ZuStencilNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalParam.h"
#include "render/ZuRenderCamera.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"

#include <GLES2/gl2.h>

ZuStencilNode::ZuStencilNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuStencilNode");
    setRenderOrder(11);
}

void ZuStencilNode::zuinit() {
    ZuNode::zuinit();
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    material = new ZuMaterial(app, "debugFacePt");
}

void ZuStencilNode::zudestroy() {
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    ZuNode::zudestroy();
}

void ZuStencilNode::setMesh(ZuRenderMesh* value) { qzAssignRetained(mesh, value); }

void ZuStencilNode::update(float delta) {
    ZuNode::update(delta);
    if (!material) return;
    material->setStencilTest(true);
    material->setStencilClear(false);
    // Every fragment fails the test, and the failure writes the reference.
    material->setStencilFunc(GL_NEVER, 1, 255);
    material->setStencilOp(GL_REPLACE, GL_KEEP, GL_KEEP);
    material->setDepthTest(false);
    material->setModelMatrix(getAbsoluteMat().m);
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && param->activeCamera) material->setVPMatrix(param->activeCamera->getVPMat());
    if (ZuRenderObject* object = getRenderObject()) {
        object->setMesh(mesh);
        object->setMaterial(material);
    }
}

void ZuStencilNode::render() {
    ZuRenderScene* scene = getActiveRenderScene();
    ZuRenderObject* object = getRenderObject();
    if (!scene || !object || !material || !mesh) return;
    object->pushCmd(scene, 11, "stencil");
}
