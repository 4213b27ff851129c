#pragma once

#include <string>

// A fresh directory under /tmp, removed with its contents when destroyed.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // Path of the directory, ending in '/', so that it can serve as a search path.
    const std::string& path() const { return m_path; }

    // Writes a file below the directory (creating subdirectories) and returns its full path.
    std::string write(const std::string& relative, const std::string& content) const;

private:
    std::string m_path;
};
