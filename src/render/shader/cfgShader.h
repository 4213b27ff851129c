#pragma once

#include "basesys/qzMap.h"
#include "basesys/qzString.h"

// The program table: key to (vertex source, fragment source). Built in, so
// programs are asked for by key only. Rows are added together with the GLSL
// of the effect that computes them.
class cfgShader {
public:
    struct Sources {
        const char* vs = nullptr;
        const char* fs = nullptr;
    };

    // The ordered table, filled on first use (before the engine starts in
    // practice) and never changed afterwards.
    static const qz::map<qz::string, Sources>& table();

    // The pair of a key, or null; the lookup is case-sensitive.
    static const Sources* find(const char* key);
};
