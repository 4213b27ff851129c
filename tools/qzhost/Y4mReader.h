#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

// Reads a YUV4MPEG2 stream (a .y4m file or a pipe) of 4:2:0 frames, the
// format every video converter can write: a header line, then per frame a
// "FRAME" line and the planar Y, U, V bytes (I420 layout).
class Y4mReader {
public:
    Y4mReader() = default;
    ~Y4mReader();
    Y4mReader(const Y4mReader&) = delete;
    Y4mReader& operator=(const Y4mReader&) = delete;

    // "-" reads standard input. Reads and checks the header; false with
    // error() saying why (not a YUV4MPEG2 stream, no size, odd sides, a
    // chroma layout other than 4:2:0, interlacing).
    bool open(const std::string& path);
    // Takes ownership of an open stream (tests).
    bool open(FILE* stream);

    // The next frame's I420 bytes. False at the end: ended() tells a clean
    // end from a broken frame (error() says which and where).
    bool next(std::vector<uint8_t>& frame);
    bool ended() const { return m_ended; }

    int width() const { return m_width; }
    int height() const { return m_height; }
    // Frames a second from the header's F rate, rounded; 0 when absent.
    int fps() const { return m_fps; }
    size_t frameBytes() const { return static_cast<size_t>(m_width) * m_height * 3 / 2; }
    int framesRead() const { return m_frames; }
    const std::string& error() const { return m_error; }

private:
    bool fail(const std::string& message);
    bool readHeader();
    // One line without its newline; false at the end or past maxLength.
    bool readLine(std::string& line, size_t maxLength, bool* atEnd);

    FILE* m_stream = nullptr;
    bool m_ownsStream = false;
    int m_width = 0;
    int m_height = 0;
    int m_fps = 0;
    int m_frames = 0;
    bool m_ended = false;
    std::string m_error;
};
