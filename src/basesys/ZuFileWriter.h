#pragma once

#include "basesys/ZuGBase.h"

// Base of the typed file writers (PNG).
class ZuFileWriter : public ZuGBase {
public:
    explicit ZuFileWriter(ZuAppMain* app);
    ~ZuFileWriter() override;

    // Writes a width by height picture from data to path. 0 here.
    virtual int write(const char* path, int width, int height, void* data);
};
