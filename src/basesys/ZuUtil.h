#pragma once

#include <cstddef>
#include <string>

// Text helpers for the glyph paths. Decoding never reads past a terminator,
// and the bounded forms never past the given length.
class ZuUtil {
public:
    // Appends code as 1 to 6 UTF-8 bytes (thresholds 7, 11, 16, 21, 26 and 31
    // bits) and returns the byte count; -1, with nothing appended, for a code
    // of 31 bits or more.
    static int ToUTF8(unsigned int code, std::string& target);

    // Decodes the first character of NUL-terminated text. -1 for null text,
    // a byte that cannot lead, or a continuation byte without the 10 prefix.
    static int FromUTF8(const char* text);
    // As above over at most length bytes; a character cut by the end is -1.
    static int FromUTF8(const char* text, size_t length);
    // Byte length of the character that lead starts, or 0 if it cannot lead.
    static int UTF8SequenceLength(unsigned char lead);

    // Counts characters the way the glyph code lays them out: a byte with the
    // top bit set starts a 3-byte character, any other byte is one character.
    // Not a general UTF-8 length. -1 for null text.
    static int GetUtf8StringLenght(const char* text);
};
