#pragma once

#include "basesys/qzArray.h"
#include "scene/ZuNode.h"

class ZuMaterial;

// Holds several materials for one full-screen pass drawn by its owner; it
// records nothing itself.
class ZuFilterMultiMaterial : public ZuNode {
public:
    explicit ZuFilterMultiMaterial(ZuAppMain* app);
    ~ZuFilterMultiMaterial() override;

    void zuinit() override;
    void zudestroy() override;

    // Retains and appends; null is ignored.
    void pushMaterial(ZuMaterial* material);
    void clearMaterial();
    int materialCount() const { return static_cast<int>(materials.size()); }

private:
    qz::array<ZuMaterial*> materials;
};
