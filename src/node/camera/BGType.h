#pragma once

// What a scene's camera background is made of.
enum BGType {
    BG_NONE = 0,
    BG_RGBA = 1,
    BG_BGRA = 2,
    BG_I420 = 3,
    BG_YV12 = 4,
    BG_NV12 = 5,
    BG_NV21 = 6,
    BG_TEXTURE = 7,  // a host GL texture
};

// Pixel layouts of host textures.
enum PIXELFORMATE { PF_BGRA = 1, PF_RGBA = 2 };
