#pragma once

#include "scene/ZuNode.h"

class ZuMaterial;
class ZuRenderMesh;
class ZuTexture;

// One textured quad of a set size, centred on the node: the plain picture
// the game screens place, scale and move.
class ZuSpriteNode : public ZuNode {
public:
    explicit ZuSpriteNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    void render() override;

    void setSpriteSize(float width, float height);
    // Retains the texture; the one held before is released.
    void setSpriteTexture(ZuTexture* texture);
    ZuTexture* getSpriteTexture() const { return texture; }
    float getSpriteWidth() const { return width; }
    float getSpriteHeight() const { return height; }

private:
    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    ZuTexture* texture = nullptr;
    float width = 100.0f;
    float height = 100.0f;
};
