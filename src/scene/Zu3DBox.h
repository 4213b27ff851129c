#pragma once

#include "render/math/ZuColor.h"
#include "scene/ZuBoundingBox.h"
#include "scene/ZuNode.h"

class ZuMaterial;
class ZuMaterialColorSelect3d;
class ZuRenderMesh;

// A coloured test cube for 3D scenes: a box of -10 to 10 on each axis,
// turned and coloured at random (from the engine's seedable source) when it
// is made, scaled 5 times at the design centre. It can be picked: the pick
// pass draws it in its node id.
class Zu3DBox : public ZuNode {
public:
    explicit Zu3DBox(ZuAppMain* app);
    ~Zu3DBox() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    const ZuColor& getColor() const { return color; }
    const ZuBoundingBox& getBox() const { return box; }
    ZuMaterialColorSelect3d* getSelectMaterial() const { return selectMaterial; }

private:
    void releaseOwned();

    ZuRenderMesh* mesh = nullptr;
    ZuMaterial* material = nullptr;
    ZuMaterialColorSelect3d* selectMaterial = nullptr;
    ZuBoundingBox box;
    ZuColor color;
};
