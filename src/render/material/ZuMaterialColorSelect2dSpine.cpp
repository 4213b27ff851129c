#include "render/material/ZuMaterialColorSelect2dSpine.h"

const char* ZuMaterialColorSelect2dSpine::programKey() const { return "colorselect2dspine"; }
