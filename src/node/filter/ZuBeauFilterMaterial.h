#pragma once

#include "node/filter/ZUBEAUFILTERTYPE.h"
#include "render/material/ZuGMaterial.h"

class ZuTexture;

// The material of a named look: the look's program and two texture slots
// beyond the usual four, for looks with five images.
class ZuBeauFilterMaterial : public ZuGMaterial {
public:
    ZuBeauFilterMaterial(ZuAppMain* app, ZUBEAUFILTERTYPE type);

    ~ZuBeauFilterMaterial() override;
    void destroy() override;
    bool refreshMaterial() override;

    // Retain the new texture and release the old.
    void setTexture4(ZuTexture* texture);
    void setTexture5(ZuTexture* texture);

private:
    bool resolveExtra(ZuTexture* texture, unsigned& id);

    ZuTexture* tex4 = nullptr;
    ZuTexture* tex5 = nullptr;
    unsigned texId4 = 0;
    unsigned texId5 = 0;
};
