#pragma once

#include "basesys/qzString.h"
#include "scene/ZuNode.h"

class ZuAniSpineNode;
class ZuRenderMesh;
class ZuTexHeadMaterial;
class ZuTexture;

// A host's head picture riding on one bone of a skeletal sticker: placed on
// the bone, sized by its scale, turned by its angle and faded with its slot,
// cut by a mask and framed. It removes itself when its sticker stops.
class ZuHeadNode : public ZuNode {
public:
    explicit ZuHeadNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    void render() override;
    bool procEvent(ZuEvent* event) override;
    bool isReady() override;

    // Each retains the new picture and releases the old one.
    void setTexture(ZuTexture* texture);
    void setMaskTexture(ZuTexture* texture);
    void setFrameTexture(ZuTexture* texture);
    // On-screen size before the bone's scale; 0 takes the picture's own.
    void setTextureSize(float width, float height);
    void setLinkSpine(ZuAniSpineNode* node) { linkSpine = node; }
    void setLinkBoneName(const char* name) { linkBone = name ? name : ""; }
    ZuTexture* getTexture() const { return headTexture; }
    ZuTexture* getMaskTexture() const { return maskTexture; }
    ZuTexture* getFrameTexture() const { return frameTexture; }
    ZuTexHeadMaterial* getMaterial() const { return material; }
    bool getShow() const { return show; }
    float getXOffset() const { return xOffset; }

private:
    struct Vertex {
        float x, y;
        uint8_t r, g, b, a;
        float u, v;
    };

    ZuTexture* headTexture = nullptr;
    ZuTexture* maskTexture = nullptr;
    ZuTexture* frameTexture = nullptr;
    ZuTexHeadMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    float sceneWidth = 0.0f, sceneHeight = 0.0f;
    float textureWidth = 0.0f, textureHeight = 0.0f;
    float xOffset = -1.0f;
    bool show = false;
    ZuAniSpineNode* linkSpine = nullptr;
    qz::string linkBone;
    Vertex vertices[4] = {};
};
