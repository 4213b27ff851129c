#include "render/texture/ZuPngWriter.h"

#include "platform/ZuLog.h"

#include <png.h>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>

namespace {

void writerError(png_structp png, png_const_charp message) {
    QZLOGE("png writer: %s", message);
    png_longjmp(png, 1);
}

void writerWarning(png_structp, png_const_charp message) { QZLOGD("png writer: %s", message); }

} // namespace

ZuPngWriter::ZuPngWriter(ZuAppMain* app) : ZuFileWriter(app) {}

ZuPngWriter::~ZuPngWriter() = default;

int ZuPngWriter::write(const char* path, int width, int height, void* data) {
    if (!path || !data || width <= 0 || height <= 0) {
        QZLOGE("png writer: nothing to write to '%s' (%dx%d)", path ? path : "", width, height);
        return 0;
    }
    FILE* file = std::fopen(path, "wb");
    if (!file) {
        QZLOGE("png writer: cannot open '%s'", path);
        return 0;
    }
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, writerError, writerWarning);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!png || !info) {
        png_destroy_write_struct(&png, nullptr);
        std::fclose(file);
        std::remove(path);
        return 0;
    }
    png_bytep* volatile rows = nullptr;
    if (setjmp(png_jmpbuf(png))) {
        std::free(rows);
        png_destroy_write_struct(&png, &info);
        std::fclose(file);
        std::remove(path);
        return 0;
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), 8,
                 PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    rows = static_cast<png_bytep*>(std::malloc(sizeof(png_bytep) * static_cast<size_t>(height)));
    if (!rows) png_error(png, "out of memory");
    unsigned char* bytes = static_cast<unsigned char*>(data);
    for (int y = 0; y < height; ++y) rows[y] = bytes + static_cast<size_t>(y) * width * 4;
    png_write_image(png, rows);
    png_write_end(png, nullptr);
    std::free(rows);
    png_destroy_write_struct(&png, &info);
    if (std::fclose(file) != 0) {
        QZLOGE("png writer: cannot finish '%s'", path);
        std::remove(path);
        return 0;
    }
    return 1;
}
