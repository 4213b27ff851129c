#pragma once

#include "node/filter/ZuFilter.h"

class ZuBeautyMaterial;
class ZuRenderMesh;

// Eye enlarging and face slimming in one pass: a fine grid over the screen
// whose texture coordinates the vertex stage pulls around the face of the
// node's person. Without that face (or while inactive) it records nothing.
class ZuBeautyNode : public ZuFilter {
public:
    explicit ZuBeautyNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;
    // Kind 43 (eye strength) and 44 (slim factors) for this resource id
    // whose name starts this node's name.
    bool procEvent(ZuEvent* event) override;

    void setEyeLarge(float left, float right);
    // Values within 0.001 of 1 become 1.001, so the stretch direction of the
    // warp never vanishes.
    void setFaceSlim(float value);
    void setChinSlim(float value);
    void setChinUpSlim(float value);
    void setChinMiddleSlim(float value);

    float getEyeLargeLeft() const;
    float getEyeLargeRight() const;
    float getFaceSlim() const;
    float getChinSlim() const;
    float getChinUpSlim() const;
    float getChinMiddleSlim() const;
    bool isActive() const { return active; }
    ZuBeautyMaterial* getMaterial() const { return material; }

private:
    void updateLocations();

    ZuBeautyMaterial* material = nullptr;
    ZuRenderMesh* grid = nullptr;
    bool active = true;
};
