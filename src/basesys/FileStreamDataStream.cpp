#include "basesys/FileStreamDataStream.h"

FileStreamDataStream::FileStreamDataStream(std::istream* stream, bool freeOnClose)
    : readStream(stream), freeOnClose(freeOnClose) {
    determineAccess();
    measure();
}

FileStreamDataStream::FileStreamDataStream(const std::string& name, std::istream* stream,
                                           bool freeOnClose)
    : DataStream(name), readStream(stream), freeOnClose(freeOnClose) {
    determineAccess();
    measure();
}

FileStreamDataStream::FileStreamDataStream(const std::string& name, std::istream* stream,
                                           size_t knownSize, bool freeOnClose)
    : DataStream(name), readStream(stream), freeOnClose(freeOnClose) {
    determineAccess();
    size = knownSize;
}

FileStreamDataStream::FileStreamDataStream(std::fstream* stream, bool freeOnClose)
    : readWriteStream(stream), freeOnClose(freeOnClose) {
    determineAccess();
    measure();
}

FileStreamDataStream::FileStreamDataStream(const std::string& name, std::fstream* stream,
                                           bool freeOnClose)
    : DataStream(name), readWriteStream(stream), freeOnClose(freeOnClose) {
    determineAccess();
    measure();
}

FileStreamDataStream::FileStreamDataStream(const std::string& name, std::fstream* stream,
                                           size_t knownSize, bool freeOnClose)
    : DataStream(name), readWriteStream(stream), freeOnClose(freeOnClose) {
    determineAccess();
    size = knownSize;
}

FileStreamDataStream::~FileStreamDataStream() { close(); }

void FileStreamDataStream::determineAccess() {
    access = 0;
    if (readStream) access = READ;
    if (readWriteStream) access = READ | WRITE;
}

std::istream* FileStreamDataStream::input() const {
    return readWriteStream ? static_cast<std::istream*>(readWriteStream) : readStream;
}

void FileStreamDataStream::measure() {
    std::istream* in = input();
    size = 0;
    if (!in) return;
    std::streampos here = in->tellg();
    in->seekg(0, std::ios_base::end);
    std::streampos last = in->tellg();
    if (last != std::streampos(-1)) size = static_cast<size_t>(last);
    in->clear();
    in->seekg(here == std::streampos(-1) ? std::streampos(0) : here);
}

size_t FileStreamDataStream::read(void* buffer, size_t count) {
    std::istream* in = input();
    if (!in || !buffer || count == 0) return 0;
    in->read(static_cast<char*>(buffer), static_cast<std::streamsize>(count));
    return static_cast<size_t>(in->gcount());
}

size_t FileStreamDataStream::write(const void* buffer, size_t count) {
    if (!readWriteStream || !buffer || count == 0) return 0;
    readWriteStream->write(static_cast<const char*>(buffer), static_cast<std::streamsize>(count));
    if (!readWriteStream->good()) return 0;
    // Later reads continue where the write ended.
    readWriteStream->seekg(readWriteStream->tellp());
    return count;
}

void FileStreamDataStream::skip(long count) {
    std::istream* in = input();
    if (!in) return;
    // Clearing first lets a skip back work after the end was hit.
    in->clear();
    in->seekg(static_cast<std::streamoff>(count), std::ios_base::cur);
    if (readWriteStream) readWriteStream->seekp(readWriteStream->tellg());
}

void FileStreamDataStream::seek(size_t position) {
    std::istream* in = input();
    if (!in) return;
    in->clear();
    in->seekg(static_cast<std::streamoff>(position), std::ios_base::beg);
    if (readWriteStream) readWriteStream->seekp(static_cast<std::streamoff>(position));
}

size_t FileStreamDataStream::tell() const {
    std::istream* in = input();
    if (!in) return 0;
    in->clear();
    std::streampos at = in->tellg();
    return at == std::streampos(-1) ? 0 : static_cast<size_t>(at);
}

bool FileStreamDataStream::eof() const {
    std::istream* in = input();
    return in ? in->eof() : true;
}

void FileStreamDataStream::close() {
    if (readWriteStream) {
        readWriteStream->close();
        if (freeOnClose) delete readWriteStream;
        readWriteStream = nullptr;
    }
    if (readStream) {
        if (std::ifstream* file = dynamic_cast<std::ifstream*>(readStream)) file->close();
        if (freeOnClose) delete readStream;
        readStream = nullptr;
    }
    access = 0;
}
