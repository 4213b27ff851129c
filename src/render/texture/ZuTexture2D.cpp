#include "render/texture/ZuTexture2D.h"
