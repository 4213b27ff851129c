#include "OutputWriter.h"

#include "render/texture/ZuPngWriter.h"

#include <algorithm>
#include <cstring>

OutputWriter::~OutputWriter() {
    if (m_rawOut) fclose(m_rawOut);
}

std::string OutputWriter::frameFileName(int index, const char* suffix) {
    char name[64];
    snprintf(name, sizeof(name), "frame_%04d.%s", index, suffix);
    return name;
}

void OutputWriter::uprightRgba(const uint8_t* frame, int width, int height, bool bgra, std::vector<uint8_t>& out) {
    const size_t rowBytes = static_cast<size_t>(width) * 4;
    out.resize(rowBytes * height);
    for (int y = 0; y < height; ++y) {
        const uint8_t* source = frame + (height - 1 - y) * rowBytes;
        uint8_t* target = out.data() + y * rowBytes;
        memcpy(target, source, rowBytes);
        if (bgra)
            for (size_t x = 0; x < rowBytes; x += 4) std::swap(target[x], target[x + 2]);
    }
}

bool OutputWriter::open(const std::string& outDir, const std::string& rawOut, int width, int height,
                        int outputType) {
    m_outDir = outDir;
    m_width = width;
    m_height = height;
    m_outputType = outputType;
    const size_t pixels = static_cast<size_t>(width) * height;
    m_frameBytes = isPictureOutput() ? pixels * 4 : pixels * 3 / 2;
    if (!rawOut.empty()) {
        m_rawOut = fopen(rawOut.c_str(), "wb");
        if (!m_rawOut) {
            fprintf(stderr, "qzhost: cannot write '%s'\n", rawOut.c_str());
            return false;
        }
        m_rawOutPath = rawOut;
    }
    return true;
}

bool OutputWriter::write(int index, const std::vector<uint8_t>& frame) {
    if (frame.size() < m_frameBytes) {
        fprintf(stderr, "qzhost: output frame %d is %zu bytes, expected %zu\n", index, frame.size(), m_frameBytes);
        return false;
    }
    if (m_rawOut && fwrite(frame.data(), 1, m_frameBytes, m_rawOut) != m_frameBytes) {
        fprintf(stderr, "qzhost: writing '%s' failed\n", m_rawOutPath.c_str());
        return false;
    }
    if (m_outDir.empty()) return true;

    std::string path = m_outDir + (m_outDir.back() == '/' ? "" : "/") + frameFileName(index, isPictureOutput() ? "png" : "yuv");
    if (isPictureOutput()) {
        uprightRgba(frame.data(), m_width, m_height, m_outputType == 5, m_upright);
        ZuPngWriter writer(nullptr);
        if (!writer.write(path.c_str(), m_width, m_height, m_upright.data())) {
            fprintf(stderr, "qzhost: cannot write '%s'\n", path.c_str());
            return false;
        }
    } else {
        FILE* file = fopen(path.c_str(), "wb");
        bool ok = file && fwrite(frame.data(), 1, m_frameBytes, file) == m_frameBytes;
        if (file && fclose(file) != 0) ok = false;
        if (!ok) {
            fprintf(stderr, "qzhost: cannot write '%s'\n", path.c_str());
            return false;
        }
    }
    m_written.push_back(path);
    return true;
}

bool OutputWriter::writeComparison(int index, const std::vector<uint8_t>& input) {
    const size_t rowBytes = static_cast<size_t>(m_width) * 4;
    if (m_outDir.empty() || !isPictureOutput() || m_upright.size() < rowBytes * m_height ||
        input.size() < rowBytes * m_height)
        return true;
    std::vector<uint8_t> sheet(rowBytes * 2 * m_height);
    for (int y = 0; y < m_height; ++y) {
        std::copy_n(input.begin() + y * rowBytes, rowBytes, sheet.begin() + y * rowBytes * 2);
        std::copy_n(m_upright.begin() + y * rowBytes, rowBytes, sheet.begin() + y * rowBytes * 2 + rowBytes);
    }
    std::string path = m_outDir + (m_outDir.back() == '/' ? "" : "/") + "compare" + frameFileName(index, "png").substr(5);
    ZuPngWriter writer(nullptr);
    if (!writer.write(path.c_str(), m_width * 2, m_height, sheet.data())) {
        fprintf(stderr, "qzhost: cannot write '%s'\n", path.c_str());
        return false;
    }
    m_written.push_back(path);
    return true;
}

bool OutputWriter::close() {
    if (!m_rawOut) return true;
    bool ok = fclose(m_rawOut) == 0;
    m_rawOut = nullptr;
    if (!ok) {
        fprintf(stderr, "qzhost: writing '%s' failed\n", m_rawOutPath.c_str());
        return false;
    }
    m_written.push_back(m_rawOutPath);
    return true;
}
