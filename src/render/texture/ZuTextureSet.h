#pragma once

#include "render/texture/ZuTexture.h"

// Type tag of an atlas page; regions are ZuTexturePList.
enum { ZU_TEXTURE_TYPE_SET = 2, ZU_TEXTURE_TYPE_PLIST = 3 };

// One atlas page: an ordinary image that regions point into.
class ZuTextureSet : public ZuTexture {
public:
    explicit ZuTextureSet(ZuAppMain* app) : ZuTexture(app) { type = ZU_TEXTURE_TYPE_SET; }
};
