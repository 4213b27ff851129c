#pragma once

#include "node/filter/ZuFilter.h"

class ZuMaterialEffectShake;

// A shaking split of the colour channels: red and blue drift sideways apart
// by a beating amount, most at the picture's sides. Each period of the beat
// ends on one frame of the untouched picture.
class ZuEffectShakeNode : public ZuFilter {
public:
    explicit ZuEffectShakeNode(ZuAppMain* app);
    ~ZuEffectShakeNode() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    ZuMaterialEffectShake* getMaterial() const { return material; }

private:
    ZuMaterialEffectShake* material = nullptr;
    bool warnedSize = false;
};
