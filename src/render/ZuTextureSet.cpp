#include "render/ZuTextureSet.h"
