#include "render/ZuTexture2D.h"
