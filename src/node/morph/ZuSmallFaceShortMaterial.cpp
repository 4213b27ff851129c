#include "node/morph/ZuSmallFaceShortMaterial.h"

ZuSmallFaceShortMaterial::ZuSmallFaceShortMaterial(ZuAppMain* app) : ZuSmallFaceWarpMaterial(app, "shortFace") {}
