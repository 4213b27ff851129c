#pragma once

// Static GL helpers behind ZuTexture: they create, fill and delete texture
// names with the engine's sampling defaults (linear, clamped to the edge).
// GL thread only. Every upload sets the unpack alignment to 1, so rows of odd
// width in 3-, 2- or 1-byte formats are read unpadded.
class ZuRenderTexture {
public:
    // A new name holding the image (pixels may be null for storage only).
    static int ApplyTexture2D(int width, int height, int inFormat, int dataFormat, const void* pixels,
                              bool mipmaps);
    // Replaces the whole level 0 of an existing name.
    static void FillTexture2D(int id, int width, int height, int inFormat, int dataFormat,
                              const void* pixels, bool mipmaps);
    // A name without storage, for a camera texture the caller fills itself.
    static int ApplyTextureCamera();
    // A name without storage; mipmaps only changes the minification filter.
    static int ApplyTextureNull(bool mipmaps);
    static void ReturnTexture(int id);
    // Linear sampling and edge clamp on an existing name (a host texture).
    static void setTextrueNullType(int id, int target);

    // Bytes per pixel of an unsigned-byte GL pixel format, 0 for unknown ones.
    static int bytesPerPixel(int format);

private:
    static void setSampling(int target, bool mipmaps);
    // ES 2 cannot mipmap sizes that are not powers of two.
    static bool canMipmap(int width, int height);
};
