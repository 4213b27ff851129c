#include "FrameSource.h"

#include "render/texture/ZuPngLoader.h"

#include <GLES2/gl2.h>
#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <fstream>
#include <iterator>
#include <strings.h>
#include <sys/stat.h>
#include <utility>

namespace {

// The last run of digits in a file name, or -1.
long long frameNumberOf(const std::string& name) {
    size_t end = name.find_last_of("0123456789");
    if (end == std::string::npos) return -1;
    size_t begin = name.find_last_not_of("0123456789", end);
    begin = begin == std::string::npos ? 0 : begin + 1;
    std::string digits = name.substr(begin, std::min<size_t>(end - begin + 1, 18));
    return atoll(digits.c_str());
}

bool hasPngSuffix(const std::string& name) {
    return name.size() > 4 && strcasecmp(name.c_str() + name.size() - 4, ".png") == 0;
}

} // namespace

FrameSource::~FrameSource() {
    if (m_raw) fclose(m_raw);
}

std::vector<std::string> FrameSource::numberedFrames(const std::string& folder) {
    std::vector<std::pair<long long, std::string>> numbered;
    if (DIR* dir = opendir(folder.c_str())) {
        while (dirent* entry = readdir(dir)) {
            std::string name = entry->d_name;
            // Only the file name counts: a number in the folder's path would tie every frame.
            long long number = hasPngSuffix(name) ? frameNumberOf(name.substr(0, name.size() - 4)) : -1;
            if (number >= 0) numbered.emplace_back(number, name);
        }
        closedir(dir);
    }
    std::sort(numbered.begin(), numbered.end());
    std::vector<std::string> paths;
    const std::string prefix = !folder.empty() && folder.back() == '/' ? folder : folder + "/";
    for (const auto& item : numbered) paths.push_back(prefix + item.second);
    return paths;
}

bool FrameSource::decodePng(const std::string& path, std::vector<uint8_t>& rgba, int* width, int* height) const {
    std::ifstream file(path, std::ios::binary);
    std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file.good() && !file.eof()) {
        fprintf(stderr, "qzhost: cannot read '%s'\n", path.c_str());
        return false;
    }
    // No engine needed for decoding: the loader only uses it to find files.
    ZuPngLoader loader(nullptr);
    unsigned char* pixels = nullptr;
    if (bytes.empty() || !loader._readPngFromStream(bytes.data(), static_cast<int>(bytes.size()), path.c_str(),
                                                    &pixels)) {
        fprintf(stderr, "qzhost: '%s' is not a readable PNG\n", path.c_str());
        return false;
    }
    *width = loader.getWidth();
    *height = loader.getHeight();
    size_t count = static_cast<size_t>(*width) * *height;
    rgba.resize(count * 4);
    if (loader.getGlFormat() == GL_RGBA) {
        std::copy(pixels, pixels + count * 4, rgba.begin());
    } else {
        for (size_t i = 0; i < count; ++i) {
            rgba[i * 4] = pixels[i * 3];
            rgba[i * 4 + 1] = pixels[i * 3 + 1];
            rgba[i * 4 + 2] = pixels[i * 3 + 2];
            rgba[i * 4 + 3] = 255;
        }
    }
    free(pixels);
    return true;
}

bool FrameSource::openImage(const std::string& path) {
    struct stat info;
    if (stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) {
        m_kind = Kind::Folder;
        m_files = numberedFrames(path);
        if (m_files.empty()) {
            fprintf(stderr, "qzhost: the folder '%s' holds no numbered PNG frames (e.g. frame_001.png)\n",
                    path.c_str());
            return false;
        }
        std::vector<uint8_t> first;
        if (!decodePng(m_files[0], first, &m_width, &m_height)) return false;
        m_frameCount = static_cast<int>(m_files.size());
    } else {
        m_kind = Kind::Photo;
        m_photoPath = path;
        if (!decodePng(path, m_photo, &m_width, &m_height)) return false;
        m_frameCount = 1;
    }
    // The YUV layouts subsample 2x2 blocks, so an odd side has no exact frame.
    if (m_width % 2 || m_height % 2) {
        fprintf(stderr, "qzhost: '%s' is %dx%d; camera frames need even sides\n", path.c_str(), m_width, m_height);
        return false;
    }
    return true;
}

bool FrameSource::openRaw(const std::string& path, int width, int height, CameraFrameConverter::Format format) {
    m_kind = Kind::Raw;
    m_width = width;
    m_height = height;
    m_rawFormat = format;
    m_raw = fopen(path.c_str(), "rb");
    if (!m_raw) {
        fprintf(stderr, "qzhost: cannot open the raw file '%s'\n", path.c_str());
        return false;
    }
    struct stat info;
    long long frameBytes = CameraFrameConverter::frameSize(format, width, height);
    if (fstat(fileno(m_raw), &info) != 0 || frameBytes <= 0 || info.st_size < frameBytes) {
        fprintf(stderr, "qzhost: '%s' is smaller than one %dx%d %s frame (%lld bytes)\n", path.c_str(), width,
                height, CameraFrameConverter::formatName(format), frameBytes);
        return false;
    }
    if (info.st_size % frameBytes)
        fprintf(stderr, "qzhost: warning: '%s' ends in a partial frame, which is skipped\n", path.c_str());
    m_frameCount = static_cast<int>(std::min<long long>(info.st_size / frameBytes, 1000000));
    return true;
}

bool FrameSource::isY4mPath(const std::string& path) {
    if (path == "-") return true;
    return path.size() > 4 && strcasecmp(path.c_str() + path.size() - 4, ".y4m") == 0;
}

bool FrameSource::openY4m(const std::string& path) {
    m_kind = Kind::Y4m;
    m_rawFormat = CameraFrameConverter::I420;
    if (!m_y4m.open(path)) {
        fprintf(stderr, "qzhost: %s: %s\n", path == "-" ? "standard input" : path.c_str(), m_y4m.error().c_str());
        return false;
    }
    m_width = m_y4m.width();
    m_height = m_y4m.height();
    // A stream does not say how long it is: frames run until it ends.
    m_frameCount = 1000000;
    return true;
}

bool FrameSource::next(std::vector<uint8_t>& frame) {
    switch (m_kind) {
    case Kind::Y4m:
        if (m_y4m.next(frame)) return true;
        if (!m_y4m.ended()) fprintf(stderr, "qzhost: the video input: %s\n", m_y4m.error().c_str());
        return false;
    case Kind::Photo:
        m_lastName = m_photoPath;
        frame = m_photo;
        return !frame.empty();
    case Kind::Folder: {
        if (m_nextIndex >= m_frameCount) return false;
        const std::string& path = m_files[m_nextIndex++];
        m_lastName = path;
        int width = 0, height = 0;
        if (!decodePng(path, frame, &width, &height)) return false;
        if (width != m_width || height != m_height) {
            fprintf(stderr, "qzhost: '%s' is %dx%d, but the frames before it are %dx%d\n", path.c_str(), width,
                    height, m_width, m_height);
            return false;
        }
        return true;
    }
    case Kind::Raw: {
        if (m_nextIndex >= m_frameCount || !m_raw) return false;
        frame.resize(CameraFrameConverter::frameSize(m_rawFormat, m_width, m_height));
        if (fread(frame.data(), 1, frame.size(), m_raw) != frame.size()) {
            fprintf(stderr, "qzhost: the raw file ended early at frame %d\n", m_nextIndex + 1);
            return false;
        }
        ++m_nextIndex;
        return true;
    }
    }
    return false;
}
