#include "basesys/MemoryDataStream.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {
uint16_t accessFor(bool readOnly) {
    return static_cast<uint16_t>(readOnly ? DataStream::READ : DataStream::READ | DataStream::WRITE);
}
} // namespace

MemoryDataStream::MemoryDataStream(void* memory, size_t bytes, bool freeOnClose, bool readOnly)
    : DataStream(accessFor(readOnly)), freeOnClose(freeOnClose) {
    wrap(memory, bytes);
}

MemoryDataStream::MemoryDataStream(const std::string& name, void* memory, size_t bytes,
                                   bool freeOnClose, bool readOnly)
    : DataStream(name, accessFor(readOnly)), freeOnClose(freeOnClose) {
    wrap(memory, bytes);
}

MemoryDataStream::MemoryDataStream(DataStream& source, bool freeOnClose, bool readOnly)
    : DataStream(accessFor(readOnly)), freeOnClose(freeOnClose) {
    copyFrom(source);
}

MemoryDataStream::MemoryDataStream(const DataStreamPtr& source, bool freeOnClose, bool readOnly)
    : DataStream(accessFor(readOnly)), freeOnClose(freeOnClose) {
    if (source) copyFrom(*source);
}

MemoryDataStream::MemoryDataStream(const std::string& name, DataStream& source, bool freeOnClose,
                                   bool readOnly)
    : DataStream(name, accessFor(readOnly)), freeOnClose(freeOnClose) {
    copyFrom(source);
}

MemoryDataStream::MemoryDataStream(const std::string& name, const DataStreamPtr& source,
                                   bool freeOnClose, bool readOnly)
    : DataStream(name, accessFor(readOnly)), freeOnClose(freeOnClose) {
    if (source) copyFrom(*source);
}

MemoryDataStream::MemoryDataStream(size_t bytes, bool freeOnClose, bool readOnly)
    : DataStream(accessFor(readOnly)), freeOnClose(freeOnClose) {
    makeBlock(bytes);
}

MemoryDataStream::MemoryDataStream(const std::string& name, size_t bytes, bool freeOnClose,
                                   bool readOnly)
    : DataStream(name, accessFor(readOnly)), freeOnClose(freeOnClose) {
    makeBlock(bytes);
}

MemoryDataStream::~MemoryDataStream() { close(); }

void MemoryDataStream::wrap(void* memory, size_t bytes) {
    start = static_cast<unsigned char*>(memory);
    size = start ? bytes : 0;
    end = start ? start + size : nullptr;
    position = 0;
}

void MemoryDataStream::makeBlock(size_t bytes) {
    // calloc so that a fresh block reads as zeros, not as leftovers.
    void* block = bytes > 0 ? calloc(bytes, 1) : nullptr;
    wrap(block, block ? bytes : 0);
}

void MemoryDataStream::copyFrom(DataStream& source) {
    size_t bytes = source.getSize();
    if (bytes == 0 && !source.eof()) {
        // The source does not know its size: read it all to learn it.
        std::string all = source.getAsString();
        makeBlock(all.size());
        if (start) memcpy(start, all.data(), all.size());
        return;
    }
    makeBlock(bytes);
    if (!start) return;
    // The source may hold less than it claims; only what came is readable.
    size_t got = source.read(start, bytes);
    size = got;
    end = start + got;
}

size_t MemoryDataStream::read(void* buffer, size_t count) {
    size_t n = remaining();
    if (count < n) n = count;
    if (n == 0 || !buffer) return 0;
    memcpy(buffer, start + position, n);
    position += n;
    return n;
}

size_t MemoryDataStream::write(const void* buffer, size_t count) {
    if (!isWriteable() || !buffer) return 0;
    size_t n = remaining();
    if (count < n) n = count;
    if (n == 0) return 0;
    memcpy(start + position, buffer, n);
    position += n;
    return n;
}

size_t MemoryDataStream::readLine(char* buffer, size_t max, const std::string& delimiters) {
    const bool dropCR = delimiters.find('\n') != std::string::npos;
    size_t stored = 0;
    char last = 0;
    while (stored < max && position < size) {
        char c = static_cast<char>(start[position++]);
        if (delimiters.find(c) != std::string::npos) break;
        if (buffer) buffer[stored] = c;
        last = c;
        ++stored;
    }
    if (dropCR && stored > 0 && last == '\r') --stored;
    if (buffer) buffer[stored] = 0;
    return stored;
}

size_t MemoryDataStream::skipLine(const std::string& delimiters) {
    size_t passed = 0;
    while (position < size) {
        char c = static_cast<char>(start[position++]);
        ++passed;
        if (delimiters.find(c) != std::string::npos) break;
    }
    return passed;
}

void MemoryDataStream::skip(long count) {
    // Unchecked against the end, as seek is, but kept from wrapping around:
    // a move before the start stops at 0, a huge one at the largest offset.
    if (count < 0) {
        size_t back = static_cast<size_t>(-(count + 1)) + 1;
        position = back > position ? 0 : position - back;
    } else {
        size_t ahead = static_cast<size_t>(count);
        position = ahead > SIZE_MAX - position ? SIZE_MAX : position + ahead;
    }
}

void MemoryDataStream::seek(size_t newPosition) { position = newPosition; }

size_t MemoryDataStream::tell() const { return position; }

bool MemoryDataStream::eof() const { return position >= size; }

void MemoryDataStream::close() {
    if (freeOnClose && start) free(start);
    start = nullptr;
    end = nullptr;
    size = 0;
    position = 0;
}
