#include "render/ZuMaterialColorLine.h"

const char* ZuMaterialColorLine::programKey() const { return "normalv2"; }
