#pragma once

#include <stddef.h>

// Every heap block of the skeletal runtime goes through these three calls so
// that the host can route or count them. The hooks are process-wide and meant
// to be set once, before any runtime object exists.
void* _malloc(size_t size, const char* file, int line);
void* _calloc(size_t num, size_t size, const char* file, int line);
void _free(void* ptr);

// A null argument restores the default (the C library). A debug malloc, when
// set, is preferred over the plain one and also receives the call site.
void _setMalloc(void* (*mallocFunc)(size_t size));
void _setDebugMalloc(void* (*mallocFunc)(size_t size, const char* file, int line));
void _setFree(void (*freeFunc)(void* ptr));

// Copies of text owned by runtime records; a null text gives null.
char* _spStrDup(const char* text);
char* _spStrDupRange(const char* begin, const char* end);
// Concatenation of two texts (either may be null) in a fresh block.
char* _spStrConcat(const char* first, const char* second);

#define SP_MALLOC(TYPE, COUNT) ((TYPE*)_malloc(sizeof(TYPE) * (size_t)(COUNT), __FILE__, __LINE__))
#define SP_CALLOC(TYPE, COUNT) ((TYPE*)_calloc((size_t)(COUNT), sizeof(TYPE), __FILE__, __LINE__))
#define SP_NEW(TYPE) SP_CALLOC(TYPE, 1)
#define SP_FREE(PTR) _free((void*)(PTR))
