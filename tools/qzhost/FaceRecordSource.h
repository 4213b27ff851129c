#pragma once

#include "FaceRecordBuilder.h"

#include <cstdint>
#include <string>
#include <vector>

// The face record pushed with each frame: built once from one landmark file
// (a photo, or the same face for every frame), or per frame from a folder of
// the files tools/facetrack writes for a clip — FRAME.landmarks.json beside
// each FRAME.png. A frame without its file goes out as a record without
// faces, as a tracker that lost the face would send it.
class FaceRecordSource {
public:
    // path: a landmark file or a folder of them. False after printing why.
    bool open(const std::string& path, FaceRecordBuilder::Backend backend, int width, int height);
    bool isPerFrame() const { return m_perFrame; }

    // The record for the frame of that file name (ignored for a single file).
    // False after printing why when its landmark file is unusable.
    bool recordFor(const std::string& frameName, std::vector<uint8_t>& record);

    // The landmark file's name for a frame file name: the stem + ".landmarks.json".
    static std::string landmarkNameFor(const std::string& frameName);
    const std::vector<uint8_t>& singleRecord() const { return m_single; }

private:
    // Reads one landmark file into a record; false after printing why.
    bool build(const std::string& file, std::vector<uint8_t>& record) const;

    std::string m_path;
    bool m_perFrame = false;
    FaceRecordBuilder::Backend m_backend = FaceRecordBuilder::Backend::FP;
    int m_width = 0;
    int m_height = 0;
    std::vector<uint8_t> m_single;
};
