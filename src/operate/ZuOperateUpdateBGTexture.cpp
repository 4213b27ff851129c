#include "operate/ZuOperateUpdateBGTexture.h"

#include "node/camera/ZuBackGroundExtTextureNode.h"
#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeMgr.h"

#include <typeinfo>

void ZuOperateUpdateBGTexture::process(float) {
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    ZuNode* found = nodes ? nodes->getNode(node.c_str()) : nullptr;
    // Only the plain host-texture background: its subclasses draw differently.
    if (found && typeid(*found) == typeid(ZuBackGroundExtTextureNode))
        static_cast<ZuBackGroundExtTextureNode*>(found)->updateTextureId(texture);
}
