#pragma once

#include "node/filter/ZuFilter.h"

class ZuFilterSketchMaterial;

// A pencil-sketch look: black lines on the picture's edges, and three tones
// by brightness (black, a hatching image, white).
class ZuSketchFilterNode : public ZuFilter {
public:
    static constexpr const char* kHatchImage = "shader/filter/filterimg/filtersketch.png";

    explicit ZuSketchFilterNode(ZuAppMain* app);
    ~ZuSketchFilterNode() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    ZuFilterSketchMaterial* getMaterial() const { return material; }

private:
    // One sample step per pixel of the camera's picture.
    void updateSteps();

    ZuFilterSketchMaterial* material = nullptr;
    bool warnedSize = false;
    bool hasHatch = false;
};
