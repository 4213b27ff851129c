#include "support/TempDir.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

TempDir::TempDir() {
    char pattern[] = "/tmp/qztest-XXXXXX";
    const char* made = mkdtemp(pattern);
    m_path = made ? std::string(made) + "/" : std::string("/tmp/");
}

TempDir::~TempDir() {
    std::error_code ignored;
    if (m_path != "/tmp/") std::filesystem::remove_all(m_path, ignored);
}

std::string TempDir::write(const std::string& relative, const std::string& content) const {
    std::filesystem::path full = std::filesystem::path(m_path) / relative;
    std::filesystem::create_directories(full.parent_path());
    std::ofstream out(full, std::ios::binary);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    return full.string();
}
