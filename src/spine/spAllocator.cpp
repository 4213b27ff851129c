#include "spine/spAllocator.h"

#include <stdint.h>
#include <stdlib.h>
#include <string.h>

namespace {

void* (*g_malloc)(size_t) = malloc;
void* (*g_debugMalloc)(size_t, const char*, int) = nullptr;
void (*g_free)(void*) = free;

// Larger requests only come from corrupt counts; refusing them keeps a bad
// file from taking the process down inside the allocator.
const size_t kMaxBlock = (size_t)1 << 31;

} // namespace

void* _malloc(size_t size, const char* file, int line) {
    if (size > kMaxBlock) return nullptr;
    if (size == 0) size = 1;
    if (g_debugMalloc) return g_debugMalloc(size, file, line);
    return g_malloc(size);
}

void* _calloc(size_t num, size_t size, const char* file, int line) {
    if (size != 0 && num > SIZE_MAX / size) return nullptr;
    void* block = _malloc(num * size, file, line);
    if (block) memset(block, 0, num * size == 0 ? 1 : num * size);
    return block;
}

void _free(void* ptr) {
    if (ptr) g_free(ptr);
}

void _setMalloc(void* (*mallocFunc)(size_t size)) {
    g_malloc = mallocFunc ? mallocFunc : malloc;
}

void _setDebugMalloc(void* (*mallocFunc)(size_t size, const char* file, int line)) {
    g_debugMalloc = mallocFunc;
}

void _setFree(void (*freeFunc)(void* ptr)) {
    g_free = freeFunc ? freeFunc : free;
}

char* _spStrDup(const char* text) {
    if (!text) return nullptr;
    return _spStrDupRange(text, text + strlen(text));
}

char* _spStrDupRange(const char* begin, const char* end) {
    size_t length = (size_t)(end - begin);
    char* copy = SP_MALLOC(char, length + 1);
    if (!copy) return nullptr;
    memcpy(copy, begin, length);
    copy[length] = 0;
    return copy;
}

char* _spStrConcat(const char* first, const char* second) {
    size_t a = first ? strlen(first) : 0;
    size_t b = second ? strlen(second) : 0;
    char* text = SP_MALLOC(char, a + b + 1);
    if (!text) return nullptr;
    if (a) memcpy(text, first, a);
    if (b) memcpy(text + a, second, b);
    text[a + b] = 0;
    return text;
}
