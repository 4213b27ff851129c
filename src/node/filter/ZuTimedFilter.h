#pragma once

#include "render/command/RENDERSTREAMTYPE.h"

class ZuAppMain;
class ZuMaterial;

// A full-screen material shown over a scene for a fixed time, outside any
// package: an outer filter handed to the logic manager's timed nodes.
class ZuTimedFilter {
public:
    // Nothing when the scene does not exist.
    static void show(ZuAppMain* app, const char* scene, RENDERSTREAMTYPE stream, ZuMaterial* material,
                     float seconds);
};
