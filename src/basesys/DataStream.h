#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

// A seekable byte stream with line reading, the input of the mesh and
// skeleton readers. Subclasses supply the raw moves; line handling lives here
// and works through read and skip only.
class DataStream {
public:
    enum AccessMode : uint16_t {
        READ = 1,
        WRITE = 2,
    };

    explicit DataStream(uint16_t accessMode = READ) : access(accessMode) {}
    DataStream(const std::string& streamName, uint16_t accessMode = READ)
        : name(streamName), access(accessMode) {}
    virtual ~DataStream() = default;
    DataStream(const DataStream&) = delete;
    DataStream& operator=(const DataStream&) = delete;

    const std::string& getName() const { return name; }
    uint16_t getAccessMode() const { return access; }
    // Total size in bytes, 0 when not known.
    size_t getSize() const { return size; }

    virtual bool isReadable() const { return (access & READ) != 0; }
    virtual bool isWriteable() const { return (access & WRITE) != 0; }

    // Copies up to count bytes; returns how many came, 0 at the end.
    virtual size_t read(void* buffer, size_t count) = 0;
    // Returns how many bytes were written; 0 on a stream that is not writeable.
    virtual size_t write(const void* buffer, size_t count) { return 0; }

    // Reads up to max bytes or to the first delimiter, which is consumed but
    // not stored. buffer may be null (the line is only skipped); otherwise it
    // must hold max + 1 bytes, as the result is always terminated. When the
    // delimiters include "\n", a carriage return before it is dropped too.
    // Returns the length stored.
    virtual size_t readLine(char* buffer, size_t max, const std::string& delimiters = "\n");

    // Reads to the next "\n" (or the end) and returns the line without it and
    // without a trailing carriage return; trimAfter also trims both ends.
    virtual std::string getLine(bool trimAfter = true);

    // Everything from the start to the end, whatever the current position.
    virtual std::string getAsString();

    // Moves past the next delimiter; returns the count of bytes passed,
    // the delimiter included.
    virtual size_t skipLine(const std::string& delimiters = "\n");

    // Relative and absolute moves; a position past the end reads nothing.
    virtual void skip(long count) = 0;
    virtual void seek(size_t position) = 0;
    virtual size_t tell() const = 0;
    virtual bool eof() const = 0;
    virtual void close() = 0;

protected:
    // Line-reading scratch: reads of up to kScratch - 1 bytes plus a terminator.
    static constexpr size_t kScratch = 128;

    std::string name;
    size_t size = 0;
    uint16_t access;
};

typedef std::shared_ptr<DataStream> DataStreamPtr;
