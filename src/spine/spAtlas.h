#pragma once

// Texture atlas: the pages (one image each) and the named regions packed in
// them, read from the text format that accompanies a skeleton.
struct spAtlas;

enum spAtlasFormat {
    SP_ATLAS_UNKNOWN_FORMAT,
    SP_ATLAS_ALPHA,
    SP_ATLAS_INTENSITY,
    SP_ATLAS_LUMINANCE_ALPHA,
    SP_ATLAS_RGB565,
    SP_ATLAS_RGBA4444,
    SP_ATLAS_RGB888,
    SP_ATLAS_RGBA8888
};

enum spAtlasFilter {
    SP_ATLAS_UNKNOWN_FILTER,
    SP_ATLAS_NEAREST,
    SP_ATLAS_LINEAR,
    SP_ATLAS_MIPMAP,
    SP_ATLAS_MIPMAP_NEAREST_NEAREST,
    SP_ATLAS_MIPMAP_LINEAR_NEAREST,
    SP_ATLAS_MIPMAP_NEAREST_LINEAR,
    SP_ATLAS_MIPMAP_LINEAR_LINEAR
};

enum spAtlasWrap { SP_ATLAS_MIRROREDREPEAT, SP_ATLAS_CLAMPTOEDGE, SP_ATLAS_REPEAT };

struct spAtlasPage {
    spAtlas* atlas;
    const char* name;
    spAtlasFormat format;
    spAtlasFilter minFilter, magFilter;
    spAtlasWrap uWrap, vWrap;
    void* rendererObject;  // the page texture, set by the texture hook
    int width, height;
    spAtlasPage* next;
};

struct spAtlasRegion {
    const char* name;
    int x, y, width, height;
    float u, v, u2, v2;
    int offsetX, offsetY;
    int originalWidth, originalHeight;
    int index;
    int rotate;
    int* splits;  // 4 values or null
    int* pads;    // 4 values or null
    spAtlasPage* page;
    spAtlasRegion* next;
};

struct spAtlas {
    spAtlasPage* pages;
    spAtlasRegion* regions;
    void* rendererObject;  // the application object handed to the hooks
};

// Parses atlas text of the given length. dir is the atlas file's directory,
// prefixed to page names. Returns null, having released what it built, when a
// line is missing or malformed.
spAtlas* spAtlas_create(const char* data, int length, const char* dir, void* rendererObject);
// Reads the file through _spUtil_readFile and parses it.
spAtlas* spAtlas_createFromFile(const char* path, void* rendererObject);
void spAtlas_dispose(spAtlas* atlas);

// The first region of that name, or null.
spAtlasRegion* spAtlas_findRegion(const spAtlas* atlas, const char* name);
