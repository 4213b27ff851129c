#include "render/command/ZuRenderCmdNor.h"

#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"

void ZuRenderCmdNor::render() {
    if (mesh && material && material->refreshMaterial()) mesh->render();
}
