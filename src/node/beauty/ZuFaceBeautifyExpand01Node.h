#pragma once

#include "node/filter/ZuFilter.h"

class ZuFaceBeautifyOptimizeMaterial;

// The soften limited to the skin of the node's person; drawn only while that
// person is present.
class ZuFaceBeautifyExpand01Node : public ZuFilter {
public:
    explicit ZuFaceBeautifyExpand01Node(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;
    // Kind 45 for this resource id whose name starts this node's name.
    bool procEvent(ZuEvent* event) override;

    void updateSmooth(float value);
    ZuFaceBeautifyOptimizeMaterial* getMaterial() const { return material; }

private:
    ZuFaceBeautifyOptimizeMaterial* material = nullptr;
};
