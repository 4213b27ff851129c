#pragma once

#include "CameraFrameConverter.h"
#include "Y4mReader.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

// Where the host's camera frames come from: one PNG photo, a folder of
// numbered PNG frames, or a raw YUV file read frame by frame. Frames of a
// folder must all have the first frame's size, as a camera's would.
class FrameSource {
public:
    enum class Kind { Photo, Folder, Raw, Y4m };

    FrameSource() = default;
    ~FrameSource();
    FrameSource(const FrameSource&) = delete;
    FrameSource& operator=(const FrameSource&) = delete;

    // Each open* reads enough to know the frame size; false after printing why.
    bool openImage(const std::string& path);
    bool openRaw(const std::string& path, int width, int height, CameraFrameConverter::Format format);
    // A YUV4MPEG2 stream ("-": standard input), pushed as I420 frames.
    bool openY4m(const std::string& path);
    // True for a path that names a YUV4MPEG2 stream: "-" or *.y4m.
    static bool isY4mPath(const std::string& path);

    // The next frame: top-down RGBA for PNG inputs, or the raw bytes (in
    // rawFormat()) for raw input. A photo gives the same frame every time.
    // False at the end or on a frame that cannot be read (printed).
    bool next(std::vector<uint8_t>& frame);

    Kind kind() const { return m_kind; }
    // Frames that go to the engine unconverted (raw YUV and YUV4MPEG2).
    bool isRaw() const { return m_kind == Kind::Raw || m_kind == Kind::Y4m; }
    // After next() gave false: true when the input simply ended (a stream's
    // end at a frame boundary), false when a frame could not be read.
    bool ended() const { return m_kind == Kind::Y4m && m_y4m.ended(); }
    // Frames a second the input names (YUV4MPEG2 only); 0 otherwise.
    int fps() const { return m_kind == Kind::Y4m ? m_y4m.fps() : 0; }
    int width() const { return m_width; }
    int height() const { return m_height; }
    // Frames available; a photo counts as 1.
    int frameCount() const { return m_frameCount; }
    CameraFrameConverter::Format rawFormat() const { return m_rawFormat; }
    // The file of the frame next() gave last: the photo, or the folder's
    // frame file; empty for raw input.
    const std::string& lastFrameName() const { return m_lastName; }

    // Numbered PNG files of a folder, sorted by the last number in the name;
    // names without a number are left out. Public for the tests' sake.
    static std::vector<std::string> numberedFrames(const std::string& folder);

    // A PNG file as RGBA rows, top first; false after printing why.
    bool decodePng(const std::string& path, std::vector<uint8_t>& rgba, int* width, int* height) const;

private:

    Kind m_kind = Kind::Photo;
    int m_width = 0;
    int m_height = 0;
    int m_frameCount = 0;
    int m_nextIndex = 0;
    std::vector<uint8_t> m_photo;
    std::vector<std::string> m_files;
    std::string m_photoPath;
    std::string m_lastName;
    FILE* m_raw = nullptr;
    Y4mReader m_y4m;
    CameraFrameConverter::Format m_rawFormat = CameraFrameConverter::NV21;
};
