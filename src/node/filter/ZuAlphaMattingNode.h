#pragma once

#include "node/filter/ZuFilter.h"

class ZuAlphaMattingMaterial;

// Paints a flat background out in solid yellow: the colour class shared by
// most samples along the top and sides of the frame is taken as the
// background. Draws only while its person is in the picture.
class ZuAlphaMattingNode : public ZuFilter {
public:
    explicit ZuAlphaMattingNode(ZuAppMain* app);
    ~ZuAlphaMattingNode() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    ZuAlphaMattingMaterial* getMaterial() const { return material; }

private:
    bool personPresent() const;

    ZuAlphaMattingMaterial* material = nullptr;
};
