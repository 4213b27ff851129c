#pragma once

#include "render/material/ZuGMaterial.h"

class ZuTexture;

// A face mask's picture drawn on the face triangles: program "drawface2d",
// premultiplied blending (one, one minus source alpha), no depth test. The
// mask texture is retained and bound to slot 0 on every update.
class ZuMaterialFace2d : public ZuGMaterial {
public:
    explicit ZuMaterialFace2d(ZuAppMain* app) : ZuGMaterial(app) {}
    ~ZuMaterialFace2d() override;

    void init() override;
    void update(float dt) override;

    void setMaskTexture(ZuTexture* texture);
    ZuTexture* getMaskTexture() const { return maskTexture; }

private:
    ZuTexture* maskTexture = nullptr;
};
