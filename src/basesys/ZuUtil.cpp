#include "basesys/ZuUtil.h"

#include <cstring>

int ZuUtil::ToUTF8(unsigned int code, std::string& target) {
    int count;
    if (code < 0x80u)
        count = 1;
    else if (code < 0x800u)
        count = 2;
    else if (code < 0x10000u)
        count = 3;
    else if (code < 0x200000u)
        count = 4;
    else if (code < 0x4000000u)
        count = 5;
    else if (code < 0x80000000u)
        count = 6;
    else
        return -1;

    if (count == 1) {
        target.push_back(static_cast<char>(code));
        return 1;
    }
    // Lead byte: count ones, a zero, then the top payload bits.
    static const unsigned char leadMarks[7] = {0, 0, 0xC0, 0xE0, 0xF0, 0xF8, 0xFC};
    char bytes[6];
    for (int i = count - 1; i > 0; --i) {
        bytes[i] = static_cast<char>(0x80u | (code & 0x3Fu));
        code >>= 6;
    }
    bytes[0] = static_cast<char>(leadMarks[count] | code);
    target.append(bytes, static_cast<size_t>(count));
    return count;
}

int ZuUtil::UTF8SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC0) return 0;  // a continuation byte
    if (lead < 0xE0) return 2;
    if (lead < 0xF0) return 3;
    if (lead < 0xF8) return 4;
    if (lead < 0xFC) return 5;
    if (lead < 0xFE) return 6;
    return 0;
}

int ZuUtil::FromUTF8(const char* text) {
    if (!text) return -1;
    // A terminator fails the continuation test, so the walk stops at it.
    return FromUTF8(text, strnlen(text, 6) + 1);
}

int ZuUtil::FromUTF8(const char* text, size_t length) {
    if (!text || length == 0) return -1;
    const unsigned char* p = reinterpret_cast<const unsigned char*>(text);
    const int count = UTF8SequenceLength(p[0]);
    if (count == 0) return -1;
    if (count == 1) return p[0];
    if (static_cast<size_t>(count) > length) return -1;
    static const unsigned char leadPayload[7] = {0, 0, 0x1F, 0x0F, 0x07, 0x03, 0x01};
    unsigned int code = p[0] & leadPayload[count];
    for (int i = 1; i < count; ++i) {
        if ((p[i] & 0xC0) != 0x80) return -1;
        code = (code << 6) | (p[i] & 0x3Fu);
    }
    return static_cast<int>(code);
}

int ZuUtil::GetUtf8StringLenght(const char* text) {
    if (!text) return -1;
    int count = 0;
    const unsigned char* p = reinterpret_cast<const unsigned char*>(text);
    while (*p) {
        ++count;
        if (*p & 0x80) {
            // Skip the two trail bytes, but never the terminator.
            ++p;
            for (int i = 0; i < 2 && *p; ++i) ++p;
        } else {
            ++p;
        }
    }
    return count;
}
