#include "core/Serializer.h"

#include "basesys/FileStreamDataStream.h"
#include "platform/ZuLog.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <sys/stat.h>
#include <vector>

Serializer::Serializer() : version("[Serializer_v1.00]") {}

void Serializer::readFileHeader(DataStream& stream) {
    uint16_t id = 0;
    if (!readShorts(stream, &id, 1)) return;
    if (id != kHeaderId) {
        refuse(stream, "no file header");
        return;
    }
    version = readString(stream);
}

uint16_t Serializer::readChunk(DataStream& stream) {
    currentChunkStart = stream.tell();
    uint16_t id = 0;
    uint32_t length = 0;
    if (!readShorts(stream, &id, 1) || !readInts(stream, &length, 1)) return 0;
    currentChunkId = id;
    currentChunkLength = length;
    size_t total = stream.getSize();
    if (length < kChunkHeaderSize || (total && currentChunkStart + length > total)) {
        refuse(stream, length < kChunkHeaderSize ? "chunk shorter than its header"
                                                 : "chunk longer than the file");
        return 0;
    }
    return id;
}

void Serializer::flipToLittleEndian(void* data, size_t size, size_t count) {
    if (flip) flipEndian(data, size, count);
}

void Serializer::flipFromLittleEndian(void* data, size_t size, size_t count) {
    if (flip) flipEndian(data, size, count);
}

void Serializer::flipEndian(void* data, size_t size, size_t count) {
    for (size_t i = 0; i < count; ++i) flipEndian(static_cast<char*>(data) + i * size, size);
}

void Serializer::flipEndian(void* data, size_t size) {
    std::reverse(static_cast<char*>(data), static_cast<char*>(data) + size);
}

void Serializer::determineEndianness(DataStream& stream) {
    size_t at = stream.tell();
    uint16_t dest = 0;
    if (stream.read(&dest, 2) != 2) {
        stream.seek(at);
        return;
    }
    stream.seek(at);
    if (dest == kHeaderId) flip = false;
    else if (dest == 0x0010) flip = true;
}

void Serializer::determineEndianness(Endian requested) {
    flip = requested == ENDIAN_BIG;
}

DataStreamPtr Serializer::openFile(const std::string& path) {
    struct stat info;
    if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return nullptr;
    auto* file = new std::ifstream(path, std::ios::in | std::ios::binary);
    if (!*file) {
        delete file;
        return nullptr;
    }
    return std::make_shared<FileStreamDataStream>(path, file, static_cast<size_t>(info.st_size), true);
}

size_t Serializer::remaining(const DataStream& stream) const {
    size_t at = stream.tell();
    size_t total = stream.getSize();
    return at < total ? total - at : 0;
}

bool Serializer::fits(DataStream& stream, uint64_t count, uint64_t itemSize, const char* what) {
    if (broken) return false;
    if (itemSize && count > remaining(stream) / itemSize) {
        refuse(stream, what);
        return false;
    }
    return true;
}

void Serializer::refuse(const DataStream& stream, const char* why) {
    if (broken) return;
    broken = true;
    QZLOGW("%s file %s: chunk 0x%04x at %zu refused: %s", kind, stream.getName().c_str(),
           static_cast<unsigned>(currentChunkId), currentChunkStart, why);
}

bool Serializer::readShorts(DataStream& stream, uint16_t* out, size_t count) {
    if (!fits(stream, count, 2, "data ends inside a value")) return false;
    if (stream.read(out, count * 2) != count * 2) {
        refuse(stream, "data ends inside a value");
        return false;
    }
    flipFromLittleEndian(out, 2, count);
    return true;
}

bool Serializer::readInts(DataStream& stream, uint32_t* out, size_t count) {
    if (!fits(stream, count, 4, "data ends inside a value")) return false;
    if (stream.read(out, count * 4) != count * 4) {
        refuse(stream, "data ends inside a value");
        return false;
    }
    flipFromLittleEndian(out, 4, count);
    return true;
}

bool Serializer::readFloats(DataStream& stream, float* out, size_t count) {
    if (!fits(stream, count, 4, "data ends inside a value")) return false;
    if (stream.read(out, count * 4) != count * 4) {
        refuse(stream, "data ends inside a value");
        return false;
    }
    flipFromLittleEndian(out, 4, count);
    return true;
}

bool Serializer::readFloats(DataStream& stream, double* out, size_t count) {
    std::vector<float> tmp(count);
    if (!readFloats(stream, tmp.data(), count)) return false;
    for (size_t i = 0; i < count; ++i) out[i] = tmp[i];
    return true;
}

bool Serializer::readBools(DataStream& stream, bool* out, size_t count) {
    if (!fits(stream, count, 1, "data ends inside a value")) return false;
    for (size_t i = 0; i < count; ++i) {
        unsigned char byte = 0;
        if (stream.read(&byte, 1) != 1) {
            refuse(stream, "data ends inside a value");
            return false;
        }
        out[i] = byte != 0;
    }
    return true;
}

bool Serializer::readObject(DataStream& stream, ZuVec3& out) {
    float v[3];
    if (!readFloats(stream, v, 3)) return false;
    out.set(v[0], v[1], v[2]);
    return true;
}

bool Serializer::readObject(DataStream& stream, ZuVec4& out) {
    float v[4];
    if (!readFloats(stream, v, 4)) return false;
    out = ZuVec4(v[0], v[1], v[2], v[3]);
    return true;
}

bool Serializer::readObject(DataStream& stream, ZuQuaternion& out) {
    float v[4];
    if (!readFloats(stream, v, 4)) return false;
    out = ZuQuaternion(v[3], v[0], v[1], v[2]);
    return true;
}

std::string Serializer::readString(DataStream& stream) {
    std::string out;
    char buffer[128];
    for (;;) {
        size_t got = stream.read(buffer, sizeof buffer);
        if (got == 0) break;
        const char* nl = static_cast<const char*>(std::memchr(buffer, '\n', got));
        if (nl) {
            size_t take = static_cast<size_t>(nl - buffer);
            out.append(buffer, take);
            stream.skip(static_cast<long>(take + 1) - static_cast<long>(got));
            break;
        }
        out.append(buffer, got);
    }
    if (!out.empty() && out.back() == '\r') out.pop_back();
    return out;
}

std::string Serializer::readString(DataStream& stream, size_t length) {
    std::string out(std::min(length, remaining(stream)), '\0');
    size_t got = stream.read(&out[0], out.size());
    out.resize(got);
    return out;
}

uint16_t Serializer::peekLevelChunk(DataStream& stream) {
    if (broken || stream.eof() || remaining(stream) == 0) return 0;
    return readChunk(stream);
}

void Serializer::backToChunkStart(DataStream& stream) {
    stream.seek(currentChunkStart);
}
