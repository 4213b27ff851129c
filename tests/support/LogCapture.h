#pragma once

#include "platform/ZuLog.h"

#include <mutex>
#include <string>
#include <vector>

// Captures the engine's log lines for the lifetime of the object.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();

    std::vector<std::string> lines() const;
    // Number of captured lines at or above the level that contain the text.
    int count(const std::string& text, int minLevel = ZU_LOG_VERBOSE) const;

private:
    struct Line { int level; std::string text; };
    mutable std::mutex m_mutex;
    std::vector<Line> m_lines;
    int m_savedLevel;
};
