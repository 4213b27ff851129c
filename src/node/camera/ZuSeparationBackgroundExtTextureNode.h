#pragma once

#include "node/camera/ZuBackGroundExtTextureNode.h"
#include "node/camera/ZuSeparationMask.h"

// A host-texture background that draws itself into the scene cut by a mask:
// the host-texture input and the separation draw in one node.
class ZuSeparationBackgroundExtTextureNode : public ZuBackGroundExtTextureNode {
public:
    explicit ZuSeparationBackgroundExtTextureNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    void setSeparationTexture(ZuTexture* texture) { mask.setSeparationTexture(texture); }
    ZuTexture* getSeparationTexture() const { return mask.getSeparationTexture(); }
    void updateSeparationTextureData(unsigned char* data) { mask.updateSeparationTextureData(data); }
    void setTemplateTexture(ZuTexture* texture) { mask.setTemplateTexture(texture); }
    ZuTexture* getTemplateTexture() const { return mask.getTemplateTexture(); }
    void updateTemplateTexture(unsigned char* data) { mask.updateTemplateTexture(data); }

private:
    ZuSeparationMask mask;
    ZuMaterial* separationMaterial = nullptr;
};
