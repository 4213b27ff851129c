#pragma once

#include "node/filter/ZuFilter.h"

class ZuFilterShakeMaterial;

// The picture moved up or down as a whole by the material's offsetY (clip
// units: 2 is the picture's height); at offset 0 a plain copy. Registered
// for hosts and packages that name it; nothing in the engine makes one.
class ZuShakeFilterNode : public ZuFilter {
public:
    explicit ZuShakeFilterNode(ZuAppMain* app);
    ~ZuShakeFilterNode() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    ZuFilterShakeMaterial* getMaterial() const { return material; }

private:
    ZuFilterShakeMaterial* material = nullptr;
};
