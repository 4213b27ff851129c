#include "node/morph/ZuSmallShrinkFaceMaterial.h"

ZuSmallShrinkFaceMaterial::ZuSmallShrinkFaceMaterial(ZuAppMain* app) : ZuSmallFaceWarpMaterial(app, "smallShrinkFace") {}
