#pragma once

#include "scene/ZuNode.h"

class ZuRenderMesh;
class ZuTexAniMaterial;
class ZuTexture;

// A picture scrolling endlessly across the screen (a game's moving
// background). The quad sits in clip space: a picture smaller than the
// design size keeps its size in the bottom-left corner, a bigger one shows
// the part that fits; the material wraps the texture coordinates.
class ZuTexAniNode : public ZuNode {
public:
    explicit ZuTexAniNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    void render() override;
    bool procEvent(ZuEvent* event) override;

    // Retains the texture and lays the quad out for its size.
    void setTexture(ZuTexture* texture);
    ZuTexture* getTexture() const { return texture; }
    // Pixels a second, along the material's direction.
    void setSpeed(float pixelsPerSecond);
    float getSpeed() const { return speed; }
    ZuTexAniMaterial* getMaterial() const { return material; }

private:
    // Lays the quad out once the texture's size is known.
    void _initRender();

    ZuTexAniMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    ZuTexture* texture = nullptr;
    float speed = 0.0f;
};
