#pragma once

#include "scene/ZuNode.h"

class ZuFboCopyRenderObject;
class ZuMaterial;

// Draws the scene's converted camera image into the scene target (stream 7),
// turned upright by the camera record's angle. When the picture needs no
// turn and both targets have one size, the draw would move texels unchanged:
// a texture copy takes its place.
class ZuBgRenderNode : public ZuNode {
public:
    explicit ZuBgRenderNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

protected:
    // Places the scene's background image on the render object; false when
    // the scene has no background yet.
    bool placeBackground();

    ZuMaterial* material = nullptr;

private:
    // Whether this frame's draw would be an exact copy of the background.
    bool copiesExactly() const;

    ZuFboCopyRenderObject* copyObject = nullptr;
    bool copyOnly = false;
};
