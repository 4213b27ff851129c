#pragma once

#include "basesys/ZuCoreAllocator.h"

#include <cstdint>

namespace qz {

// NUL-terminated byte string with its own buffer, no sharing. Growth is exact
// (no slack): engine strings are names and paths that rarely change once
// built. The buffer always exists, so c_str() is never null.
class string {
public:
    string();
    string(const char* text);  // null gives the empty string
    // At most length bytes of text, stopping early at a terminator.
    string(const char* text, uint32_t length);
    string(const string& other);
    explicit string(int number);
    explicit string(unsigned int number);
    explicit string(long number);
    explicit string(unsigned long number);
    explicit string(long long number);
    explicit string(unsigned long long number);
    ~string();

    string& operator=(const string& other);
    string& operator=(const char* text);

    string operator+(const string& other) const;
    string operator+(const char* text) const;
    string& operator+=(const string& other) { return append(other); }
    string& operator+=(const char* text) { return append(text); }
    string& operator+=(char c) { return append(c); }

    string& append(const string& other);
    string& append(const char* text);
    string& append(const char* text, uint32_t length);
    string& append(char c);

    bool operator==(const string& other) const;
    bool operator==(const char* text) const;
    bool operator!=(const string& other) const { return !(*this == other); }
    bool operator!=(const char* text) const { return !(*this == text); }
    // Byte-wise as unsigned values; a prefix is less than the longer string.
    bool operator<(const string& other) const;

    // Unchecked: callers test size() first.
    char& operator[](uint32_t index) { return text[index]; }
    const char& operator[](uint32_t index) const { return text[index]; }

    uint32_t size() const { return used - 1; }
    bool empty() const { return used <= 1; }
    const char* c_str() const { return text; }

    // First match at or after start, -1 if none, or for a null or empty what.
    int find(const char* what, uint32_t start = 0) const;
    // First position of c, or -1.
    int findFirst(char c) const;
    // Searches backwards from start (negative: the last character), or -1.
    int findLast(char c, int start = -1) const;
    // Empty for length below 1 or begin past the end; length is cut to fit.
    // makeLower lowers ASCII A-Z only.
    string subString(uint32_t begin, int length, bool makeLower = false) const;
    // Replaces every non-overlapping occurrence, left to right.
    string& replace(const string& what, const string& with);
    string& replace(char what, char with);
    string& make_lower();

    // Capacity in bytes, terminator included; never shrinks.
    void reserve(uint32_t count);
    // Sets the capacity exactly; a shorter block cuts the text.
    void reallocate(uint32_t count);

private:
    void assign(const char* source, uint32_t length);
    void appendBytes(const char* source, uint32_t length);
    void fromUnsigned(unsigned long long value, bool negative);

    char* text = nullptr;
    uint32_t allocated = 0;
    uint32_t used = 0;  // bytes including the terminator
    ZuCoreAllocator<char> allocator;
};

string operator+(const char* text, const string& str);
inline bool operator==(const char* text, const string& str) { return str == text; }
inline bool operator!=(const char* text, const string& str) { return !(str == text); }
// The order of string::operator< for a C string on the left.
bool operator<(const char* text, const string& str);

}  // namespace qz
