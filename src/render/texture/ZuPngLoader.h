#pragma once

#include "basesys/ZuFileLoader.h"

class ZuTexMgr;
class ZuTexture;

// Decodes PNG files into 8-bit RGB or RGBA rows, top row first. Every colour
// type and bit depth is normalised: palette and grey become RGB, a tRNS
// chunk becomes alpha, 16-bit samples keep their high byte, interlaced
// images are de-interlaced. RGBA output is premultiplied, which matches the
// engine's default blend. Safe on the load thread: no GL here.
class ZuPngLoader : public ZuFileLoader {
public:
    explicit ZuPngLoader(ZuAppMain* app);
    ~ZuPngLoader() override;

    // Reads path through the file manager and decodes it into a malloc'ed
    // buffer that the caller frees. False (and *pixels untouched) on any
    // failure, which is logged.
    bool loadData(const char* path, unsigned char** pixels);
    // Decodes and puts the image into texMgr under path; null on failure or
    // when the name is taken.
    ZuTexture* loadTexture(ZuTexMgr* texMgr, const char* path);
    // 1 when path decodes (the pixels are dropped), else 0.
    int load(const char* path) override;

    // Decodes bytes held in memory; name only labels log lines.
    bool _readPngFromStream(const unsigned char* bytes, int length, const char* name,
                            unsigned char** pixels);

    int getWidth() const { return width; }
    int getHeight() const { return height; }
    int getDataSize() const { return dataSize; }
    int getColorType() const { return colorType; }
    // GL_RGB or GL_RGBA, matching the bytes per pixel of the decoded rows.
    int getGlFormat() const { return glFormat; }

    // Largest side accepted; bigger headers are refused before allocating.
    static constexpr int kMaxSide = 16384;

private:
    int width = 0;
    int height = 0;
    int dataSize = 0;
    int colorType = -1;
    int glFormat = 0;
};
