#pragma once

#include <cstdint>
#include <vector>

struct GifFileType;

// The engine's animated-GIF encoder. On Linux it writes with giflib; a phone
// build puts its own encoder behind the same calls. Each frame gets its own
// 256-colour palette, so a picture keeps its colours even when the scene
// changes from frame to frame. The file loops forever.
class GifWrap {
public:
    GifWrap() = default;
    ~GifWrap();
    GifWrap(const GifWrap&) = delete;
    GifWrap& operator=(const GifWrap&) = delete;

    // Opens a recording; an open one is finished first. False (logged) when
    // the size is not positive or the file cannot be created.
    bool startGif(const char* path, int width, int height);
    // Adds one frame of getWidth() x getHeight() RGBA pixels, top row first,
    // shown for delayCentiseconds (0: the default of 4, about 25 frames a
    // second). The buffer may be freed after the call. False when no
    // recording is open or the write failed; a failed write closes the file.
    bool pushFrame(const void* rgba, int delayCentiseconds);
    // Finishes the file. False when nothing was open or closing failed.
    bool stopGif();

    bool isOpen() const { return file != nullptr; }
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    int framesWritten() const { return frames; }

private:
    bool writeLoopExtension();
    void fail(const char* what, int error);

    GifFileType* file = nullptr;
    int width = 0;
    int height = 0;
    int frames = 0;
    // Channel planes and palette indices, kept between frames.
    std::vector<uint8_t> red, green, blue, indices;
};
