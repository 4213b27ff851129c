#pragma once

#include "scene/ZuNode.h"

class ZuMaterial;
class ZuRenderMesh;
class ZuTexture;

// A picture laid over the whole frame (a vignette, a window frame): its
// mask texture drawn full screen with premultiplied blending. Without a
// mask it draws nothing.
class ZuCoverMaskNode : public ZuNode {
public:
    explicit ZuCoverMaskNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    void render() override;

    // Retains the new texture, releases the old one.
    void setMaskTexture(ZuTexture* texture);
    ZuTexture* getMaskTexture() const { return maskTexture; }
    ZuMaterial* getMaterial() const { return material; }

private:
    ZuTexture* maskTexture = nullptr;
    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
};
