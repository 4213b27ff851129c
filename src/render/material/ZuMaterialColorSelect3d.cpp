#include "render/material/ZuMaterialColorSelect3d.h"

const char* ZuMaterialColorSelect3d::programKey() const { return "colorselect3d"; }
