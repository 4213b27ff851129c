#include "node/morph/ZuKejiSmallFaceShortMaterial.h"

ZuKejiSmallFaceShortMaterial::ZuKejiSmallFaceShortMaterial(ZuAppMain* app) : ZuSmallFaceWarpMaterial(app, "kejiSmallShortFace") {}
