#pragma once

#include "render/math/ZuColor.h"
#include "render/material/ZuGMaterial.h"

// Flat colour from u_color: the colour-pick pass writes each object's id as
// its colour, and debug lines use the same uniform. Subclasses change only
// the program.
class ZuMaterialColorSelect2d : public ZuGMaterial {
public:
    explicit ZuMaterialColorSelect2d(ZuAppMain* app);
    void init() override;
    void _refreshInner() override;

    // 0xAARRGGBB; a pick id goes in unchanged (see ZuColor::transRgbaToID).
    void setColor(unsigned argb) { color.setColorARGB(argb); }
    const ZuColor& getColor() const { return color; }

protected:
    virtual const char* programKey() const { return "colorselect"; }

private:
    ZuColor color;
};
