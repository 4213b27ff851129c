#pragma once

#include "node/camera/ZuBgRenderNode.h"
#include "node/camera/ZuSeparationMask.h"

// Draws the scene's camera image cut by a mask (one byte per pixel, where
// 255 removes the picture), over what the scene already holds.
class ZuSeparationBackgroundNode : public ZuBgRenderNode {
public:
    explicit ZuSeparationBackgroundNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;

    ZuSeparationMask& getMask() { return mask; }
    void setSeparationTexture(ZuTexture* texture) { mask.setSeparationTexture(texture); }
    ZuTexture* getSeparationTexture() const { return mask.getSeparationTexture(); }
    void updateSeparationTextureData(unsigned char* data) { mask.updateSeparationTextureData(data); }
    void setTemplateTexture(ZuTexture* texture) { mask.setTemplateTexture(texture); }
    ZuTexture* getTemplateTexture() const { return mask.getTemplateTexture(); }
    void updateTemplateTexture(unsigned char* data) { mask.updateTemplateTexture(data); }

private:
    ZuSeparationMask mask;
};
