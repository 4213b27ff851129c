#pragma once

#include "basesys/ZuFileWriter.h"

// Writes 8-bit RGBA rows (top row first) as a PNG file.
class ZuPngWriter : public ZuFileWriter {
public:
    explicit ZuPngWriter(ZuAppMain* app);
    ~ZuPngWriter() override;

    // 1 when the whole file was written, else 0 (logged); a partial file is removed.
    int write(const char* path, int width, int height, void* data) override;
};
