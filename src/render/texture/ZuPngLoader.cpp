#include "render/texture/ZuPngLoader.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexMgr.h"

#include <GLES3/gl3.h>
#include <png.h>
#include <csetjmp>
#include <cstdlib>
#include <cstring>

namespace {

// The bytes being decoded and how far the reader got.
struct PngSource {
    const unsigned char* bytes;
    size_t length;
    size_t offset;
    const char* name;
};

void pngReaderCallback(png_structp png, png_bytep out, png_size_t count) {
    PngSource* source = static_cast<PngSource*>(png_get_io_ptr(png));
    if (!source || count > source->length - source->offset) {
        png_error(png, "pngReaderCallback failed");
        return;
    }
    std::memcpy(out, source->bytes + source->offset, count);
    source->offset += count;
}

void pngErrorCallback(png_structp png, png_const_charp message) {
    PngSource* source = static_cast<PngSource*>(png_get_io_ptr(png));
    QZLOGE("png '%s': %s", source && source->name ? source->name : "", message);
    png_longjmp(png, 1);
}

void pngWarningCallback(png_structp png, png_const_charp message) {
    PngSource* source = static_cast<PngSource*>(png_get_io_ptr(png));
    QZLOGD("png '%s': %s", source && source->name ? source->name : "", message);
}

// c * (a + 1) >> 8 on the three colour channels of each RGBA pixel.
void premultiply(unsigned char* rgba, size_t pixels) {
    for (size_t i = 0; i < pixels; ++i, rgba += 4) {
        unsigned a = rgba[3] + 1u;
        rgba[0] = static_cast<unsigned char>((rgba[0] * a) >> 8);
        rgba[1] = static_cast<unsigned char>((rgba[1] * a) >> 8);
        rgba[2] = static_cast<unsigned char>((rgba[2] * a) >> 8);
    }
}

} // namespace

ZuPngLoader::ZuPngLoader(ZuAppMain* app) : ZuFileLoader(app) {}

ZuPngLoader::~ZuPngLoader() = default;

bool ZuPngLoader::_readPngFromStream(const unsigned char* bytes, int length, const char* name,
                                     unsigned char** pixels) {
    if (!name) name = "";
    if (!bytes || length < 8 || png_sig_cmp(bytes, 0, 8) != 0) {
        QZLOGW("png '%s': not a PNG file (%d bytes)", name, length);
        return false;
    }
    PngSource source{bytes, static_cast<size_t>(length), 0, name};
    png_structp png =
        png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, pngErrorCallback, pngWarningCallback);
    if (!png) return false;
    png_infop info = png_create_info_struct(png);
    if (!info) {
        png_destroy_read_struct(&png, nullptr, nullptr);
        return false;
    }
    png_set_read_fn(png, &source, pngReaderCallback);

    // Everything changed after setjmp and read after a longjmp is volatile.
    unsigned char* volatile buffer = nullptr;
    png_bytep* volatile rows = nullptr;
    if (setjmp(png_jmpbuf(png))) {
        std::free(buffer);
        std::free(rows);
        png_destroy_read_struct(&png, &info, nullptr);
        return false;
    }

    png_read_info(png, info);
    png_uint_32 w = png_get_image_width(png, info);
    png_uint_32 h = png_get_image_height(png, info);
    int depth = png_get_bit_depth(png, info);
    int type = png_get_color_type(png, info);
    if (w == 0 || h == 0 || w > static_cast<png_uint_32>(kMaxSide) ||
        h > static_cast<png_uint_32>(kMaxSide)) {
        png_error(png, "image size out of range");
    }

    if (type == PNG_COLOR_TYPE_PALETTE) {
        png_set_palette_to_rgb(png);
        png_set_packing(png);
    }
    if (type == PNG_COLOR_TYPE_GRAY && depth < 8) png_set_expand_gray_1_2_4_to_8(png);
    if (type == PNG_COLOR_TYPE_GRAY || type == PNG_COLOR_TYPE_GRAY_ALPHA) png_set_gray_to_rgb(png);
    if (depth == 16) png_set_strip_16(png);
    if (png_get_valid(png, info, PNG_INFO_tRNS)) png_set_tRNS_to_alpha(png);
    if (depth < 8) png_set_packing(png);
    png_set_interlace_handling(png);
    png_read_update_info(png, info);

    size_t rowBytes = png_get_rowbytes(png, info);
    size_t channels = rowBytes / w;
    if ((channels != 3 && channels != 4) || rowBytes != channels * w) {
        png_error(png, "unexpected row layout after the transforms");
    }
    size_t total = rowBytes * h;
    buffer = static_cast<unsigned char*>(std::malloc(total));
    rows = static_cast<png_bytep*>(std::malloc(sizeof(png_bytep) * h));
    if (!buffer || !rows) png_error(png, "out of memory");
    for (png_uint_32 y = 0; y < h; ++y) rows[y] = buffer + y * rowBytes;
    png_read_image(png, rows);
    png_read_end(png, nullptr);

    if (channels == 4) premultiply(buffer, static_cast<size_t>(w) * h);

    width = static_cast<int>(w);
    height = static_cast<int>(h);
    dataSize = static_cast<int>(total);
    colorType = type;
    glFormat = channels == 4 ? GL_RGBA : GL_RGB;
    std::free(rows);
    png_destroy_read_struct(&png, &info, nullptr);
    *pixels = buffer;
    return true;
}

bool ZuPngLoader::loadData(const char* path, unsigned char** pixels) {
    if (!path || !pixels) return false;
    ZuFileMgr* files = fileMgr();
    if (!files) {
        QZLOGE("png '%s': no file manager", path);
        return false;
    }
    DataChunk chunk;
    if (!files->loadFileContent(&chunk, path)) {
        QZLOGW("png '%s': file not found or unreadable", path);
        return false;
    }
    return _readPngFromStream(reinterpret_cast<const unsigned char*>(chunk.buffer), chunk.size, path,
                              pixels);
}

ZuTexture* ZuPngLoader::loadTexture(ZuTexMgr* texMgr, const char* path) {
    if (!texMgr) return nullptr;
    unsigned char* pixels = nullptr;
    if (!loadData(path, &pixels)) return nullptr;
    ZuTexture* texture =
        texMgr->createNullTextureWithData(path, width, height, glFormat, glFormat, pixels);
    std::free(pixels);
    return texture;
}

int ZuPngLoader::load(const char* path) {
    unsigned char* pixels = nullptr;
    if (!loadData(path, &pixels)) return 0;
    std::free(pixels);
    return 1;
}
