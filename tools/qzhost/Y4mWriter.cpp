#include "Y4mWriter.h"

#include <algorithm>

Y4mWriter::~Y4mWriter() { close(); }

bool Y4mWriter::open(const std::string& path, int width, int height, int fps) {
    FILE* stream = fopen(path.c_str(), "wb");
    if (!stream) {
        fprintf(stderr, "qzhost: cannot write the video '%s'\n", path.c_str());
        return false;
    }
    return open(stream, width, height, fps);
}

bool Y4mWriter::open(FILE* stream, int width, int height, int fps) {
    m_stream = stream;
    m_width = width;
    m_height = height;
    return writeHeader(fps > 0 ? fps : 30);
}

bool Y4mWriter::writeHeader(int fps) {
    if (fprintf(m_stream, "YUV4MPEG2 W%d H%d F%d:1 Ip A1:1 C420jpeg\n", m_width, m_height, fps) < 0 ||
        fflush(m_stream) != 0) {
        fprintf(stderr, "qzhost: cannot write the video header\n");
        return false;
    }
    return true;
}

bool Y4mWriter::write(const std::vector<uint8_t>& frame) {
    const size_t luma = static_cast<size_t>(m_width) * m_height;
    if (!m_stream || frame.size() < luma * 3 / 2) return false;
    m_upright.resize(luma * 3 / 2);
    // Y, then U and V at half size: each plane is flipped on its own.
    struct Plane { size_t offset; int width, height; };
    const Plane planes[] = {{0, m_width, m_height},
                            {luma, m_width / 2, m_height / 2},
                            {luma + luma / 4, m_width / 2, m_height / 2}};
    for (const Plane& p : planes)
        for (int row = 0; row < p.height; ++row)
            std::copy_n(&frame[p.offset + static_cast<size_t>(row) * p.width], p.width,
                        &m_upright[p.offset + static_cast<size_t>(p.height - 1 - row) * p.width]);
    if (fputs("FRAME\n", m_stream) < 0 || fwrite(m_upright.data(), 1, m_upright.size(), m_stream) != m_upright.size() ||
        fflush(m_stream) != 0) {
        fprintf(stderr, "qzhost: writing video frame %d failed\n", m_frames + 1);
        return false;
    }
    ++m_frames;
    return true;
}

bool Y4mWriter::close() {
    if (!m_stream) return true;
    const bool ok = fclose(m_stream) == 0;
    m_stream = nullptr;
    return ok;
}
