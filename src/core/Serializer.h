#pragma once

#include "basesys/DataStream.h"
#include "render/math/ZuQuaternion.h"
#include "render/math/ZuVec3.h"
#include "render/math/ZuVec4.h"

#include <cstdint>
#include <string>

// The common part of the mesh and skeleton readers: little-endian primitives
// (swapped when the file was written the other way round), the 6-byte chunk
// header and the guards that keep a broken file from being read past its
// end. A reader that meets a broken file logs the file and the chunk once,
// sets failed() and stops; the caller then throws the result away.
class Serializer {
public:
    enum Endian { ENDIAN_NATIVE = 0, ENDIAN_LITTLE = 1, ENDIAN_BIG = 2 };
    static constexpr uint16_t kHeaderId = 0x1000;
    static constexpr uint32_t kChunkHeaderSize = 6;

    Serializer();
    virtual ~Serializer() = default;

    virtual void readFileHeader(DataStream& stream);
    // Reads a chunk header and returns its id; sets failed() when the header
    // is cut off or the chunk claims more bytes than the file holds.
    virtual uint16_t readChunk(DataStream& stream);
    virtual void flipToLittleEndian(void* data, size_t size, size_t count = 1);
    virtual void flipFromLittleEndian(void* data, size_t size, size_t count = 1);
    virtual void flipEndian(void* data, size_t size, size_t count);
    virtual void flipEndian(void* data, size_t size);
    virtual void determineEndianness(DataStream& stream);
    virtual void determineEndianness(Endian requested);

    // A stream over the file, or null when it can't be opened.
    static DataStreamPtr openFile(const std::string& path);

    bool failed() const { return broken; }
    const std::string& getVersion() const { return version; }
    bool getFlipEndian() const { return flip; }

protected:
    // Each returns false (and marks the file broken) when the data ends early.
    bool readShorts(DataStream& stream, uint16_t* out, size_t count);
    bool readInts(DataStream& stream, uint32_t* out, size_t count);
    bool readFloats(DataStream& stream, float* out, size_t count);
    bool readFloats(DataStream& stream, double* out, size_t count);
    bool readBools(DataStream& stream, bool* out, size_t count);
    bool readObject(DataStream& stream, ZuVec3& out);
    bool readObject(DataStream& stream, ZuVec4& out);
    // x, y, z, w in the file.
    bool readObject(DataStream& stream, ZuQuaternion& out);
    // Up to a 0x0A (consumed), a CR before it dropped; the file end ends it too.
    std::string readString(DataStream& stream);
    std::string readString(DataStream& stream, size_t length);

    // Bytes left after the current position.
    size_t remaining(const DataStream& stream) const;
    // Whether count items of itemSize bytes can still come; refuses otherwise.
    bool fits(DataStream& stream, uint64_t count, uint64_t itemSize, const char* what);
    // Logs "<kind> file NAME: chunk 0xID at OFFSET: WHY" once and marks the file broken.
    void refuse(const DataStream& stream, const char* why);
    // One level of nested chunks: the next header's id, or 0 (with the
    // stream where it was) at the end of the stream or of a broken file.
    uint16_t peekLevelChunk(DataStream& stream);
    void backToChunkStart(DataStream& stream);

    const char* kind = "model";
    uint32_t currentChunkLength = 0;
    uint16_t currentChunkId = 0;
    size_t currentChunkStart = 0;
    std::string version;
    bool flip = false;
    bool broken = false;
};
