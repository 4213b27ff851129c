#include "node/morph/ZuSmallShortShrinkFaceMaterial.h"

ZuSmallShortShrinkFaceMaterial::ZuSmallShortShrinkFaceMaterial(ZuAppMain* app) : ZuSmallFaceWarpMaterial(app, "smallShortShrink") {}
