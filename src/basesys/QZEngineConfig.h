#pragma once

#include "platform/ZuJni.h"

#include <string>

// What a host fills in to start an OLEngine: resources, the scene, the
// camera picture's size and angle, the window, the host's GL textures (the
// camera picture in, the finished picture out; 0 for none) and, on
// Android, the Surface to draw into (null: an off-screen surface).
struct QZEngineConfig {
    std::string resourcePath;
    std::string sceneName = "ol";
    int width = 0;
    int height = 0;
    int angle = 0;
    int windowWidth = 0;
    int windowHeight = 0;
    int inputTexture = 0;
    int outputTexture = 0;
    jobject surface = nullptr;
};
