#pragma once

#include "render/material/ZuGMaterial.h"

// A copy of the picture that grows from the centre and fades as it grows,
// over the picture itself: a short "burst" shown without a package.
class ZuMaterialScreenExpand : public ZuGMaterial {
public:
    explicit ZuMaterialScreenExpand(ZuAppMain* app) : ZuGMaterial(app) {}

    void init() override;
    void update(float ms) override;
    void _refreshInner() override;

    float getExpand() const { return expand; }

private:
    float speed = 5.0f;
    float expand = 1.0f;
    float maxSize = 5.0f;
};
