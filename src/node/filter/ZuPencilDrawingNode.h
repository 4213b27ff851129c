#pragma once

#include "node/filter/ZuFilterOutter.h"

class ZuPencilDrawingMaterial;

// A pencil drawing of the picture: grey paper with hatch shading and dark
// strokes along the edges, as a pass after all scene content.
class ZuPencilDrawingNode : public ZuFilterOutter {
public:
    explicit ZuPencilDrawingNode(ZuAppMain* app);

    void zuinit() override;
    void update(float dt) override;

    // The pencil material, unless another material was put in its place.
    ZuPencilDrawingMaterial* getPencilMaterial() const;
};
