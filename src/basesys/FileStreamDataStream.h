#pragma once

#include "basesys/DataStream.h"

#include <fstream>
#include <istream>

// A stream over a standard input stream (read only) or a file stream (read
// and write). With freeOnClose the stream object is deleted on close.
class FileStreamDataStream : public DataStream {
public:
    // Without a size the stream is measured by a seek to its end and back.
    explicit FileStreamDataStream(std::istream* stream, bool freeOnClose = true);
    FileStreamDataStream(const std::string& name, std::istream* stream, bool freeOnClose = true);
    FileStreamDataStream(const std::string& name, std::istream* stream, size_t size,
                         bool freeOnClose = true);
    explicit FileStreamDataStream(std::fstream* stream, bool freeOnClose = true);
    FileStreamDataStream(const std::string& name, std::fstream* stream, bool freeOnClose = true);
    FileStreamDataStream(const std::string& name, std::fstream* stream, size_t size,
                         bool freeOnClose = true);
    ~FileStreamDataStream() override;

    size_t read(void* buffer, size_t count) override;
    size_t write(const void* buffer, size_t count) override;
    void skip(long count) override;
    void seek(size_t position) override;
    size_t tell() const override;
    bool eof() const override;
    void close() override;

private:
    void determineAccess();
    void measure();
    // The stream reads go through: whichever of the two is set.
    std::istream* input() const;

    std::istream* readStream = nullptr;
    std::fstream* readWriteStream = nullptr;
    bool freeOnClose;
};
