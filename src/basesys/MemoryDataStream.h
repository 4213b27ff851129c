#pragma once

#include "basesys/DataStream.h"

// A stream over one block of memory, either borrowed from the caller or made
// here. Blocks are malloc'd: a borrowed block handed over with freeOnClose
// must come from malloc too.
class MemoryDataStream : public DataStream {
public:
    // Wraps existing memory.
    MemoryDataStream(void* memory, size_t size, bool freeOnClose = false, bool readOnly = false);
    MemoryDataStream(const std::string& name, void* memory, size_t size, bool freeOnClose = false,
                     bool readOnly = false);

    // Reads the whole of source, from where it stands, into a new block.
    MemoryDataStream(DataStream& source, bool freeOnClose = true, bool readOnly = false);
    MemoryDataStream(const DataStreamPtr& source, bool freeOnClose = true, bool readOnly = false);
    MemoryDataStream(const std::string& name, DataStream& source, bool freeOnClose = true,
                     bool readOnly = false);
    MemoryDataStream(const std::string& name, const DataStreamPtr& source,
                     bool freeOnClose = true, bool readOnly = false);

    // A new block of size zero bytes.
    explicit MemoryDataStream(size_t size, bool freeOnClose = true, bool readOnly = false);
    MemoryDataStream(const std::string& name, size_t size, bool freeOnClose = true,
                     bool readOnly = false);

    ~MemoryDataStream() override;

    // Start of the block; null after close.
    unsigned char* getPtr() { return start; }
    unsigned char* getCurrentPtr() { return position < size ? start + position : end; }

    size_t read(void* buffer, size_t count) override;
    size_t write(const void* buffer, size_t count) override;
    size_t readLine(char* buffer, size_t max, const std::string& delimiters = "\n") override;
    size_t skipLine(const std::string& delimiters = "\n") override;
    void skip(long count) override;
    void seek(size_t newPosition) override;
    size_t tell() const override;
    bool eof() const override;
    void close() override;

    void setFreeOnClose(bool free) { freeOnClose = free; }

private:
    void wrap(void* memory, size_t bytes);
    void copyFrom(DataStream& source);
    void makeBlock(size_t bytes);
    // Bytes between the position and the end; 0 once the position is past it.
    size_t remaining() const { return position < size ? size - position : 0; }

    unsigned char* start = nullptr;
    unsigned char* end = nullptr;
    // Kept as an offset from start: skip and seek may move it past the end,
    // which a pointer could not hold without leaving its block.
    size_t position = 0;
    bool freeOnClose;
};
