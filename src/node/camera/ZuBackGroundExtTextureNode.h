#pragma once

#include "node/camera/ZuBackGroundNode.h"

class ZuTexture;

// The camera background from a host GL texture instead of memory planes.
// It stays hidden until the host hands it a real texture name.
class ZuBackGroundExtTextureNode : public ZuBackGroundNode {
public:
    explicit ZuBackGroundExtTextureNode(ZuAppMain* app);

    void zuinit() override;
    void update(float dt) override;
    void render() override;

    void setExtTexture(ZuTexture* texture);
    void setTexInformat(PIXELFORMATE format) { inFormat = format; }
    PIXELFORMATE getTexInformat() const { return inFormat; }
    // The host now draws its frames into another texture name.
    void updateTextureId(int id);

protected:
    PIXELFORMATE inFormat = PF_BGRA;
};
