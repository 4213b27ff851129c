#include "render/command/ZuRenderCmdSpe.h"

#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"

ZuRenderCmdSpe::~ZuRenderCmdSpe() {
    qzSafeRelease(mesh);
    qzSafeRelease(material);
}

void ZuRenderCmdSpe::setMesh(ZuRenderMesh* value) {
    qzAssignRetained(mesh, value);
}

void ZuRenderCmdSpe::setMaterial(ZuMaterial* value) {
    qzAssignRetained(material, value);
}
