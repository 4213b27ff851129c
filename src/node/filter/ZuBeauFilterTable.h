#pragma once

#include "node/filter/ZUBEAUFILTERTYPE.h"

// What each named look needs: its program and up to five look-up images
// under "shader/filter/filterimg/".
class ZuBeauFilterTable {
public:
    static constexpr int kMaxImages = 5;

    struct Look {
        const char* subType;
        const char* program;
        const char* images[kMaxImages];
    };

    // Null outside the table.
    static const Look* lookOf(int type);
    // The type whose package name is subType, or -1.
    static int typeOf(const char* subType);
};
