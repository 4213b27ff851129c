#pragma once

// A malloc'd byte buffer filled by the file manager. The buffer is not
// cleared on allocation: callers fill it at once from a file or an asset.
class DataChunk {
public:
    DataChunk() = default;
    virtual ~DataChunk();
    DataChunk(const DataChunk&) = delete;
    DataChunk& operator=(const DataChunk&) = delete;

    // Stores size and, when it is above 0, allocates that many bytes. A held
    // buffer is freed first so that a chunk can be reused. Returns false (and
    // leaves the chunk empty) when the allocation fails.
    bool apply(int newSize);

    // Frees the buffer and zeroes both fields.
    void reback();

    // Makes the buffer a C string by writing 0 into its last byte.
    void toString();

    int getSize() const { return size; }
    char* getBuffer() const { return buffer; }

    int size = 0;
    char* buffer = nullptr;
};
