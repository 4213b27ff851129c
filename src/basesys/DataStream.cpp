#include "basesys/DataStream.h"

#include "basesys/StringUtil.h"

#include <cstring>

namespace {

// Index of the first byte of data[0, count) that is one of the delimiters, or
// count. Unlike strcspn this does not stop at a zero byte in binary data.
size_t findDelimiter(const char* data, size_t count, const std::string& delimiters) {
    for (size_t i = 0; i < count; ++i)
        if (delimiters.find(data[i]) != std::string::npos) return i;
    return count;
}

} // namespace

size_t DataStream::readLine(char* buffer, size_t max, const std::string& delimiters) {
    const bool dropCR = delimiters.find('\n') != std::string::npos;
    char scratch[kScratch];
    size_t total = 0;
    char last = 0;

    while (total < max) {
        size_t want = max - total;
        if (want > kScratch - 1) want = kScratch - 1;
        size_t got = read(scratch, want);
        if (got == 0) break;

        size_t at = findDelimiter(scratch, got, delimiters);
        if (buffer) memcpy(buffer + total, scratch, at);
        if (at > 0) last = scratch[at - 1];
        total += at;
        if (at < got) {
            // Stand right after the delimiter: give back what was read beyond it.
            skip(static_cast<long>(at + 1) - static_cast<long>(got));
            break;
        }
    }

    if (dropCR && total > 0 && last == '\r') --total;
    if (buffer) buffer[total] = 0;
    return total;
}

std::string DataStream::getLine(bool trimAfter) {
    char scratch[kScratch];
    std::string line;

    for (;;) {
        size_t got = read(scratch, kScratch - 1);
        if (got == 0) break;
        const char* newline = static_cast<const char*>(memchr(scratch, '\n', got));
        if (newline) {
            size_t at = static_cast<size_t>(newline - scratch);
            line.append(scratch, at);
            skip(static_cast<long>(at + 1) - static_cast<long>(got));
            break;
        }
        line.append(scratch, got);
    }

    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (trimAfter) StringUtil::trim(line);
    return line;
}

std::string DataStream::getAsString() {
    const size_t block = size > 0 ? size : 4096;
    std::string result;
    std::string scratch(block, '\0');

    seek(0);
    while (!eof()) {
        size_t got = read(&scratch[0], block);
        // A stream that stops giving bytes without reporting its end would
        // otherwise spin here for ever.
        if (got == 0) break;
        result.append(scratch.data(), got);
    }
    return result;
}

size_t DataStream::skipLine(const std::string& delimiters) {
    char scratch[kScratch];
    size_t total = 0;

    for (;;) {
        size_t got = read(scratch, kScratch - 1);
        if (got == 0) break;
        size_t at = findDelimiter(scratch, got, delimiters);
        if (at < got) {
            total += at + 1;
            skip(static_cast<long>(at + 1) - static_cast<long>(got));
            break;
        }
        total += got;
    }
    return total;
}
