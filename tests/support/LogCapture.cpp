#include "support/LogCapture.h"

LogCapture::LogCapture() : m_savedLevel(ZuLog::level()) {
    ZuLog::setLevel(ZU_LOG_VERBOSE);
    ZuLog::setSink([this](int level, const char*, const char* message) {
        std::lock_guard<std::mutex> hold(m_mutex);
        m_lines.push_back({level, message});
    });
}

LogCapture::~LogCapture() {
    ZuLog::setSink(nullptr);
    ZuLog::setLevel(m_savedLevel);
}

std::vector<std::string> LogCapture::lines() const {
    std::lock_guard<std::mutex> hold(m_mutex);
    std::vector<std::string> out;
    for (const Line& line : m_lines) out.push_back(line.text);
    return out;
}

int LogCapture::count(const std::string& text, int minLevel) const {
    std::lock_guard<std::mutex> hold(m_mutex);
    int n = 0;
    for (const Line& line : m_lines)
        if (line.level >= minLevel && line.text.find(text) != std::string::npos) ++n;
    return n;
}
