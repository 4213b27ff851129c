#pragma once

#include "data/ZuDataSwap.h"

// A swap over the host's own frame memory: the engine reads the camera
// frame from it and writes the finished picture back into it, no copy.
// The host keeps the memory alive while the engine may use it.
class ZuDataShareSwap : public ZuDataSwap {
public:
    void setBuffer(void* data, int size) { borrowBlock(data, size); }
};
