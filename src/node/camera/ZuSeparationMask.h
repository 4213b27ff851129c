#pragma once

class ZuAppMain;
class ZuMaterial;
class ZuTexture;

// The mask and template textures that both separation backgrounds carry,
// and how they reach the separation material.
class ZuSeparationMask {
public:
    ~ZuSeparationMask();

    void setSeparationTexture(ZuTexture* texture);
    ZuTexture* getSeparationTexture() const { return separationTex; }
    // One byte per pixel, the mask's size.
    void updateSeparationTextureData(unsigned char* data);
    void setTemplateTexture(ZuTexture* texture);
    ZuTexture* getTemplateTexture() const { return templateTex; }
    void updateTemplateTexture(unsigned char* data);

    // Slot 1 the mask, slot 2 the template when set; premultiplied blending.
    void applyTo(ZuMaterial* material) const;
    void clear();

private:
    ZuTexture* separationTex = nullptr;
    ZuTexture* templateTex = nullptr;
};
