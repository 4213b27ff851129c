#pragma once

#include "render/math/ZuRect.h"
#include "render/texture/ZuTexture2D.h"

class ZuTextureSet;

// One region of an atlas page. It has no GL texture of its own: loading and
// committing act on the page, and refreshParam copies the page's name and
// size so that materials can bind the region like any texture.
class ZuTexturePList : public ZuTexture2D {
public:
    explicit ZuTexturePList(ZuAppMain* app);
    ~ZuTexturePList() override;

    void zudestroy() override;
    void apply() override;
    void apply(void* pixels) override;
    void commit() override;
    bool getbLoad() override;
    virtual void refreshParam();

    // Retains the page (and lets go of a previous one).
    void bindTexset(ZuTextureSet* page);
    void unbindTexset();
    ZuTextureSet* getTexset() const { return set; }

    bool rotated = false;
    bool trimmed = false;
    float sourceWidth = 128.0f;
    float sourceHeight = 128.0f;
    ZuRect srcRect;
    ZuRect dstRect;

private:
    ZuTextureSet* set = nullptr;
};
