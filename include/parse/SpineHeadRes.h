#pragma once

#include "basesys/qzString.h"

// A head picture handed in by the host with an effect: RGBA, 4 bytes a
// pixel; its texture is named first + second.
struct SpineHeadRes {
    qz::string first;
    qz::string second;
    unsigned char* pixels = nullptr;
    int width = 0;
    int height = 0;
};
