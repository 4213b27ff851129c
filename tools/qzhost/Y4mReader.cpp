#include "Y4mReader.h"

#include <cstdlib>
#include <sstream>

Y4mReader::~Y4mReader() {
    if (m_stream && m_ownsStream && m_stream != stdin) fclose(m_stream);
}

bool Y4mReader::fail(const std::string& message) {
    m_error = message;
    return false;
}

bool Y4mReader::open(const std::string& path) {
    if (path == "-") {
        m_stream = stdin;
        m_ownsStream = false;
    } else {
        m_stream = fopen(path.c_str(), "rb");
        m_ownsStream = true;
        if (!m_stream) return fail("cannot open the video '" + path + "'");
    }
    return readHeader();
}

bool Y4mReader::open(FILE* stream) {
    if (!stream) return fail("no stream");
    m_stream = stream;
    m_ownsStream = true;
    return readHeader();
}

bool Y4mReader::readLine(std::string& line, size_t maxLength, bool* atEnd) {
    line.clear();
    *atEnd = false;
    for (;;) {
        int c = fgetc(m_stream);
        if (c == EOF) {
            *atEnd = line.empty();
            return false;
        }
        if (c == '\n') return true;
        if (line.size() >= maxLength) return false;
        line.push_back(static_cast<char>(c));
    }
}

bool Y4mReader::readHeader() {
    std::string line;
    bool atEnd = false;
    if (!readLine(line, 1024, &atEnd) || line.compare(0, 10, "YUV4MPEG2 ") != 0)
        return fail("not a YUV4MPEG2 stream (the first line must start with 'YUV4MPEG2 ')");
    std::istringstream tokens(line.substr(10));
    std::string token;
    while (tokens >> token) {
        const char tag = token[0];
        const std::string value = token.substr(1);
        if (tag == 'W') {
            m_width = atoi(value.c_str());
        } else if (tag == 'H') {
            m_height = atoi(value.c_str());
        } else if (tag == 'F') {
            long num = 0, den = 0;
            if (sscanf(value.c_str(), "%ld:%ld", &num, &den) == 2 && num > 0 && den > 0)
                m_fps = static_cast<int>((num + den / 2) / den);
        } else if (tag == 'C') {
            if (value.compare(0, 3, "420") != 0)
                return fail("the stream's chroma layout is C" + value + "; only 4:2:0 (C420...) is read");
        } else if (tag == 'I') {
            if (value != "p" && value != "?") return fail("interlaced streams (I" + value + ") are not read");
        }
    }
    if (m_width <= 0 || m_height <= 0 || m_width > 8192 || m_height > 8192)
        return fail("the header has no usable size (W and H from 2 to 8192)");
    if (m_width % 2 || m_height % 2) return fail("4:2:0 frames need even sides");
    return true;
}

bool Y4mReader::next(std::vector<uint8_t>& frame) {
    if (!m_stream || m_ended) return false;
    std::string line;
    bool atEnd = false;
    if (!readLine(line, 1024, &atEnd)) {
        if (atEnd) {
            m_ended = true;
            return false;
        }
        return fail("frame " + std::to_string(m_frames + 1) + ": broken FRAME line");
    }
    if (line.compare(0, 5, "FRAME") != 0)
        return fail("frame " + std::to_string(m_frames + 1) + ": expected a FRAME line");
    frame.resize(frameBytes());
    const size_t got = fread(frame.data(), 1, frame.size(), m_stream);
    if (got != frame.size())
        return fail("frame " + std::to_string(m_frames + 1) + " is truncated: " + std::to_string(got) + " of " +
                    std::to_string(frame.size()) + " bytes");
    ++m_frames;
    return true;
}
