#include "render/texture/ZuTextureSet.h"
