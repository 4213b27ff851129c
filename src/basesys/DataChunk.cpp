#include "basesys/DataChunk.h"

#include <cstdlib>

DataChunk::~DataChunk() { reback(); }

bool DataChunk::apply(int newSize) {
    reback();
    if (newSize <= 0) return true;
    buffer = static_cast<char*>(malloc(static_cast<size_t>(newSize)));
    if (!buffer) return false;
    size = newSize;
    return true;
}

void DataChunk::reback() {
    free(buffer);
    buffer = nullptr;
    size = 0;
}

void DataChunk::toString() {
    if (size > 0 && buffer) buffer[size - 1] = 0;
}
