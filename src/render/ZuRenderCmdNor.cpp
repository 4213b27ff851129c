#include "render/ZuRenderCmdNor.h"

#include "render/ZuMaterial.h"
#include "render/ZuRenderMesh.h"

void ZuRenderCmdNor::render() {
    if (mesh && material && material->refreshMaterial()) mesh->render();
}
