#pragma once

struct spAtlasPage;

// The three services the engine supplies to the skeletal runtime: reading a
// file, and creating and releasing an atlas page's texture. `application` is
// the engine (a ZuAppMain*) or null outside an engine.

// The whole file in a fresh block from _malloc (one zero byte is appended
// after `length` bytes), or null when it can't be read. With an engine the
// name goes through its file manager (search paths, assets); without one
// the path is opened as given.
char* _spUtil_readFile(void* application, const char* path, int* length);

// Loads the page image into page->rendererObject (a retained ZuTexture*).
// Replaceable below.
void _spAtlasPage_createTexture(void* application, spAtlasPage* page, const char* path);
// Releases what _spAtlasPage_createTexture stored in the page.
void _spAtlasPage_disposeTexture(spAtlasPage* page);

typedef void (*ZuSpineCreateTextureFunc)(void* application, spAtlasPage* page, const char* path);
typedef void (*ZuSpineDisposeTextureFunc)(spAtlasPage* page);

// Installs the texture functions; null restores the built-in ones, which take
// the image from the engine's texture manager (retained by the page, released
// on dispose) and leave rendererObject null when there is no engine.
void ZuSpineHooks_setTextureFuncs(ZuSpineCreateTextureFunc create, ZuSpineDisposeTextureFunc dispose);
