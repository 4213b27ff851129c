#pragma once

#include "render/command/RENDERSTREAMTYPE.h"
#include "scene/ZuNode.h"

class ZuFboObject;
class ZuFboSwapRenderObject;
class ZuMaterial;

// A full-screen pass over the scene's picture. One texture cannot be read and
// written at once, so each frame records a swap of the scene framebuffer's
// two colour textures and then a draw that samples the one holding the
// picture so far and writes the other. Filters chain with no copy: each sees
// the result of the one recorded before it.
class ZuFilter : public ZuNode {
public:
    explicit ZuFilter(ZuAppMain* app);
    // A timed or dropped node may be released without zudestroy.
    ~ZuFilter() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

protected:
    // The framebuffer of the application's current scene, or null.
    ZuFboObject* currentSceneFbo() const;
    // Points slot 0 of the material at the picture so far, upright, and puts
    // the material on the draw: the common tail of every filter's update.
    void bindPicture(ZuMaterial* material);
    // The swap, then the draw, into stream; nothing when a part is missing.
    void pushPass(RENDERSTREAMTYPE stream, const char* swapLabel, const char* drawLabel);

    ZuFboSwapRenderObject* swapObject = nullptr;
};
