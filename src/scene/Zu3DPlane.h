#pragma once

#include "scene/ZuNode.h"

class ZuMaterial;
class ZuRenderMesh;

// A flat unit square (-0.5 to 0.5 in x and y) in one colour, drawn through
// the 3D camera over everything else: a marker for checking placement.
class Zu3DPlane : public ZuNode {
public:
    explicit Zu3DPlane(ZuAppMain* app);
    ~Zu3DPlane() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // Writes all four vertices again in that colour (white until called).
    void setColor(unsigned char r, unsigned char g, unsigned char b, unsigned char a);

private:
    void releaseOwned();

    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
};
