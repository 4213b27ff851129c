#pragma once

#include "basesys/qzString.h"
#include "event/ZuTriggerLists.h"
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
    // Rides the node on a standard landmark of its person: the effect's point
    // (x, y), in design pixels, is kept on that landmark, so the particles
    // move with the face. While the face is away the node stays where it was
    // last seen. A negative index unbinds.
    void bindToLandmark(int standardIndex, float x, float y);
    int getBindIndex() const { return bindIndex; }

    // Start and stop patterns of the item ("triggeredBy", "terminatedBy").
    // With a start pattern the effect is held until one passes; a stop
    // pattern holds it again, and the particles alive fade out on their own.
    ZuTriggerLists& getTriggers() { return triggers; }
    void holdUntilTriggered();
    bool procEvent(ZuEvent* event) override;

    ZuParticleEffect* getEffect() const { return effect; }
    const qz::string& getBlendMode() const { return blendMode; }
    ZuMaterial* getMaterial() const { return material; }
    ZuRenderMesh* getMesh() const { return mesh; }

private:
    void applyBlend();
    void uploadVertices();
    void followLandmark(float scaleX, float scaleY);

    qz::string blendMode = "normal";
    ZuTexture* texture = nullptr;
    ZuParticleEffect* effect = nullptr;
    ZuRenderMesh* mesh = nullptr;
    ZuMaterial* material = nullptr;
    ZuTriggerLists triggers;
    int bindIndex = -1;
    float anchorX = 0.0f, anchorY = 0.0f;
};
