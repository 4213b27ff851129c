#pragma once

#include "scene/ZuNode.h"

class ZuMaterial;
class ZuRenderMesh;

// The design picture ("skeleton.png" in the texture cache) laid over the
// window at the design size, to line items up while placing them. Without
// that picture it draws its quad with no texture set.
class ZuDesignPlane : public ZuNode {
public:
    static constexpr const char* kPicture = "skeleton.png";

    explicit ZuDesignPlane(ZuAppMain* app);
    ~ZuDesignPlane() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

private:
    void releaseOwned();

    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
};
