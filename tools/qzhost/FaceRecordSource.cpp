#include "FaceRecordSource.h"

#include "LandmarkFile.h"

#include <cstdio>
#include <sys/stat.h>

namespace {

bool isDirectory(const std::string& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool isFile(const std::string& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

} // namespace

bool FaceRecordSource::open(const std::string& path, FaceRecordBuilder::Backend backend, int width, int height) {
    m_path = path;
    m_backend = backend;
    m_width = width;
    m_height = height;
    m_perFrame = isDirectory(path);
    if (m_perFrame) {
        if (!m_path.empty() && m_path.back() != '/') m_path += '/';
        return true;
    }
    return build(path, m_single);
}

std::string FaceRecordSource::landmarkNameFor(const std::string& frameName) {
    const size_t slash = frameName.find_last_of('/');
    std::string name = slash == std::string::npos ? frameName : frameName.substr(slash + 1);
    const size_t dot = name.find_last_of('.');
    if (dot != std::string::npos) name.resize(dot);
    return name + ".landmarks.json";
}

bool FaceRecordSource::recordFor(const std::string& frameName, std::vector<uint8_t>& record) {
    if (!m_perFrame) {
        record = m_single;
        return true;
    }
    const std::string file = m_path + landmarkNameFor(frameName);
    if (!isFile(file)) {
        record = FaceRecordBuilder::build({}, m_backend);
        return true;
    }
    return build(file, record);
}

bool FaceRecordSource::build(const std::string& file, std::vector<uint8_t>& record) const {
    LandmarkFile landmarks;
    if (!landmarks.load(file)) {
        fprintf(stderr, "qzhost: %s\n", landmarks.error().c_str());
        return false;
    }
    // The record is in camera pixels: landmarks of another picture size would land wrong.
    if (landmarks.width() != m_width || landmarks.height() != m_height) {
        fprintf(stderr, "qzhost: '%s' is for a %d x %d picture, the input is %d x %d\n", file.c_str(),
                landmarks.width(), landmarks.height(), m_width, m_height);
        return false;
    }
    record = FaceRecordBuilder::build(landmarks.faces(), m_backend);
    return true;
}
