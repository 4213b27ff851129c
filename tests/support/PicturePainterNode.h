#pragma once

#include "scene/ZuNode.h"

#include <cstdint>
#include <vector>

class ZuMaterial;
class ZuRenderObject;
class ZuTexture;

// Draws a known RGBA picture over the whole scene in the background stream,
// before any pass, so that tests can compare a pass's output with the
// picture it started from. Subclasses say which picture.
class PicturePainterNode : public ZuNode {
public:
    explicit PicturePainterNode(ZuAppMain* app) : ZuNode(app) {}

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

protected:
    // RGBA rows, the first row uploaded first; width and height of the picture.
    virtual std::vector<uint8_t> picture(int* width, int* height) const = 0;

private:
    ZuTexture* texture = nullptr;
    ZuMaterial* material = nullptr;
    ZuRenderObject* object = nullptr;
};
