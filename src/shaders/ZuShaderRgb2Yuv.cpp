// RGB to planar YUV for read-back. Each output pixel packs four consecutive
// bytes of a plane into r, g, b, a, so one read of 0.375 x height rows of an
// RGBA target yields a finished 1.5-bytes-per-pixel image: the Y plane in
// the bottom quarter of the rows, then the chroma bands.
#include "shaders/ZuShaderSource.h"

const char* const sv_rgb2yuv = R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
varying vec2 vTexcoord;
void main() {
    gl_Position = aPosition;
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
}
)";

// Every output pixel carries the four plane bytes at offset 4 x (its index
// in row order): the Y plane (width x height bytes), then the chroma of each
// 2 x 2 block, as pairs (NV12, NV21) or as two quarter planes (I420, YV12).
// Working from the byte offset rather than from band positions makes bands
// that end mid-row come out right at any size. Offsets reach several
// million, so the fragment stage needs high precision where the device has
// it; sums stay below 2^24, where floats are exact.
#define QZ_RGB2YUV_COMMON                                                              \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\n"               \
    "precision mediump float;\n#endif\n"                                               \
    "uniform sampler2D aTexture0;\n"                                                   \
    "uniform float width;\n"                                                           \
    "uniform float height;\n"                                                          \
    "varying vec2 vTexcoord;\n"                                                        \
    "const vec3 kY = vec3(0.256816, 0.504154, 0.0979137);\n"                           \
    "const vec3 kU = vec3(-0.148246, -0.29102, 0.439266);\n"                           \
    "const vec3 kV = vec3(0.439271, -0.367833, -0.071438);\n"                          \
    /* Row and column of an offset; the half keeps floor off an inexact quotient. */   \
    "vec2 split(float offset, float rowLength) {\n"                                     \
    "    float row = floor((offset + 0.5) / rowLength);\n"                              \
    "    return vec2(offset - row * rowLength, row);\n"                                 \
    "}\n"                                                                              \
    /* A source pixel's centre, so that the sample is that pixel alone. */             \
    "float lumaAt(float offset) {\n"                                                   \
    "    vec2 p = split(offset, width);\n"                                             \
    "    return dot(texture2D(aTexture0, (p + 0.5) / vec2(width, height)).rgb, kY) + 0.0625;\n" \
    "}\n"                                                                              \
    /* The corner shared by a 2 x 2 block: the linear sample is its average. */        \
    "vec2 chromaAt(float block) {\n"                                                   \
    "    vec2 b = split(block, floor(width / 2.0));\n"                                 \
    "    vec3 c = texture2D(aTexture0, (b * 2.0 + 1.0) / vec2(width, height)).rgb;\n"   \
    "    return vec2(dot(c, kU) + 0.5, dot(c, kV) + 0.5);\n"                           \
    "}\n"                                                                              \
    "float chromaByte(float offset);\n"                                                \
    "float byteAt(float offset) {\n"                                                   \
    "    float luma = width * height;\n"                                               \
    "    return offset < luma ? lumaAt(offset) : chromaByte(offset - luma);\n"         \
    "}\n"                                                                              \
    "void main() {\n"                                                                  \
    "    vec2 pixel = floor(vTexcoord * vec2(width, height));\n"                       \
    "    float first = (pixel.y * width + pixel.x) * 4.0;\n"                           \
    /* Beyond the frame's 1.5 bytes per pixel the clear colour stays. */               \
    "    if (first >= width * height * 1.5) discard;\n"                                \
    "    gl_FragColor = vec4(byteAt(first), byteAt(first + 1.0), byteAt(first + 2.0), byteAt(first + 3.0));\n" \
    "}\n"

// Pairs of one block after another: (U, V) for NV12, (V, U) for NV21.
#define QZ_RGB2YUV_SEMIPLANAR(vFirst)                                            \
    "float chromaByte(float offset) {\n"                                         \
    "    float block = floor((offset + 0.5) / 2.0);\n"                           \
    "    vec2 uv = chromaAt(block);\n"                                           \
    "    bool second = offset - block * 2.0 > 0.5;\n"                            \
    "    return (second != " vFirst ") ? uv.y : uv.x;\n"                         \
    "}\n"

// Two quarter planes: U then V for I420, V then U for YV12.
#define QZ_RGB2YUV_PLANAR(vFirst)                                                \
    "float chromaByte(float offset) {\n"                                         \
    "    float plane = floor(width / 2.0) * floor(height / 2.0);\n"              \
    "    bool second = offset >= plane;\n"                                       \
    "    vec2 uv = chromaAt(second ? offset - plane : offset);\n"                \
    "    return (second != " vFirst ") ? uv.y : uv.x;\n"                         \
    "}\n"

const char* const sf_rgb2yuvnv12 = QZ_RGB2YUV_COMMON QZ_RGB2YUV_SEMIPLANAR("false");
const char* const sf_rgb2yuvnv21 = QZ_RGB2YUV_COMMON QZ_RGB2YUV_SEMIPLANAR("true");
const char* const sf_rgb2yuvi420 = QZ_RGB2YUV_COMMON QZ_RGB2YUV_PLANAR("false");
const char* const sf_rgb2yuvyv12 = QZ_RGB2YUV_COMMON QZ_RGB2YUV_PLANAR("true");
