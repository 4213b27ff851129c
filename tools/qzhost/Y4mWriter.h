#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

// Writes the engine's I420 output as a YUV4MPEG2 stream (a file or a pipe)
// that any video converter reads. The engine delivers rows bottom row
// first; each plane is turned upright on the way out. Each frame is flushed
// whole, so a stream cut short still holds every frame written before.
class Y4mWriter {
public:
    Y4mWriter() = default;
    ~Y4mWriter();
    Y4mWriter(const Y4mWriter&) = delete;
    Y4mWriter& operator=(const Y4mWriter&) = delete;

    // A file, or an already open stream (standard output's saved copy).
    bool open(const std::string& path, int width, int height, int fps);
    bool open(FILE* stream, int width, int height, int fps);
    // One bottom-up I420 frame of width x height. False after printing why.
    bool write(const std::vector<uint8_t>& frame);
    bool close();
    int framesWritten() const { return m_frames; }

private:
    bool writeHeader(int fps);

    FILE* m_stream = nullptr;
    int m_width = 0;
    int m_height = 0;
    int m_frames = 0;
    std::vector<uint8_t> m_upright;
};
