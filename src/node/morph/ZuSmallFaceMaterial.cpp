#include "node/morph/ZuSmallFaceMaterial.h"

ZuSmallFaceMaterial::ZuSmallFaceMaterial(ZuAppMain* app) : ZuSmallFaceWarpMaterial(app, "smallFace") {}
