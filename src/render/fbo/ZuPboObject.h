#pragma once

#include "basesys/ZuRefObject.h"

// A pixel pack buffer for asynchronous read-back (ES 3): a frame is read into
// it in one frame and mapped in the next. The GL buffer is allocated once, at
// the first size, and never grows: callers size a PBO once. GL thread only.
class ZuPboObject : public ZuRefObject {
public:
    ZuPboObject() = default;
    ~ZuPboObject() override;

    // name only labels log lines. False when either side is 0.
    bool resetPboWidth(const char* name, int width, int height);
    void bind(bool pack);
    void unbind(bool pack);
    void setWrite() { written = true; }
    bool getWrite() const { return written; }
    unsigned int getPboID() const { return pboId; }
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    int getByteSize() const { return byteSize; }
    // Bytes the GL buffer really holds (its first size).
    int getAllocatedSize() const { return allocated; }

private:
    int width = 0;
    int height = 0;
    unsigned int pboId = 0;
    int byteSize = 0;
    int allocated = 0;
    bool written = false;
};
