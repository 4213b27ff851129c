#include "render/material/ZuMaterialColorLine.h"

const char* ZuMaterialColorLine::programKey() const { return "normalv2"; }
