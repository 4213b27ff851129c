#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

// Writes the frames read back from the engine: PNG files for RGBA and BGRA
// output, raw .yuv files for the YUV outputs, and/or every frame's bytes
// appended to one raw file. The engine delivers rows bottom row first (GL
// order); PNGs are flipped upright, raw bytes stay exactly as delivered.
class OutputWriter {
public:
    OutputWriter() = default;
    ~OutputWriter();
    OutputWriter(const OutputWriter&) = delete;
    OutputWriter& operator=(const OutputWriter&) = delete;

    // outputType as for ZuAppNative::setOutSteamFormate (1 RGBA, 5 BGRA, the
    // others YUV). Empty outDir or rawOut turns that output off. False
    // after printing why.
    bool open(const std::string& outDir, const std::string& rawOut, int width, int height, int outputType);
    // Bytes of one output frame: the buffer size to hand to fetchRenderData.
    size_t frameBytes() const { return m_frameBytes; }

    // Writes frame number index (counted from 1). False after printing why.
    bool write(int index, const std::vector<uint8_t>& frame);
    // After write(): the input picture (RGBA, top row first) and the frame
    // just written side by side in compare_NNNN.png. PNG output only.
    bool writeComparison(int index, const std::vector<uint8_t>& input);
    bool close();

    const std::vector<std::string>& written() const { return m_written; }

    // name_0001.png style names, four digits at least.
    static std::string frameFileName(int index, const char* suffix);
    // Top-down RGBA from a bottom-up frame; BGRA input gets its red and blue swapped.
    static void uprightRgba(const uint8_t* frame, int width, int height, bool bgra, std::vector<uint8_t>& out);

private:
    bool isPictureOutput() const { return m_outputType == 1 || m_outputType == 5; }

    std::string m_outDir;
    std::string m_rawOutPath;
    FILE* m_rawOut = nullptr;
    int m_width = 0;
    int m_height = 0;
    int m_outputType = 1;
    size_t m_frameBytes = 0;
    std::vector<uint8_t> m_upright;
    std::vector<std::string> m_written;
};
