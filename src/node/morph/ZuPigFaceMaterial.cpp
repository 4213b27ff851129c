#include "node/morph/ZuPigFaceMaterial.h"

ZuPigFaceMaterial::ZuPigFaceMaterial(ZuAppMain* app) : ZuSmallFaceWarpMaterial(app, "pigFace") {}
