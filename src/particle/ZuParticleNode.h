#pragma once

#include "basesys/qzString.h"
#include "scene/ZuNode.h"

class ZuMaterial;
class ZuParticleEffect;
class ZuRenderMesh;
class ZuTexture;

// Draws one particle effect as a single mesh of textured, coloured quads,
// ticking the effect with the scene. Positions are design pixels of the
// scene, y up.
class ZuParticleNode : public ZuNode {
public:
    explicit ZuParticleNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float ms) override;
    void render() override;

    // Takes ownership of the effect (a ZuParticleEffect).
    void setEffect(void* effect, const char* blend);
    // "add" or "normal"; any other value leaves the blend as it was.
    void setBlendMode(const char* mode);
    // Retains; null draws nothing.
    void setTexture(ZuTexture* texture);

    ZuParticleEffect* getEffect() const { return effect; }
    const qz::string& getBlendMode() const { return blendMode; }
    ZuMaterial* getMaterial() const { return material; }
    ZuRenderMesh* getMesh() const { return mesh; }

private:
    void applyBlend();
    void uploadVertices();

    qz::string blendMode = "normal";
    ZuTexture* texture = nullptr;
    ZuParticleEffect* effect = nullptr;
    ZuRenderMesh* mesh = nullptr;
    ZuMaterial* material = nullptr;
};
