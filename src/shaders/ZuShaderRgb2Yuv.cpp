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

// Positions are in source pixels and reach several thousand, so the
// fragment stage needs high precision where the device has it.
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
    "vec3 rgbAt(vec2 p, vec2 size) { return texture2D(aTexture0, p / size).rgb; }\n"   \
    "float lumaAt(vec2 p, vec2 size) { return dot(rgbAt(p, size), kY) + 0.0625; }\n"   \
    "vec2 chromaAt(vec2 p, vec2 size) {\n"                                             \
    "    vec3 c = rgbAt(p, size);\n"                                                   \
    "    return vec2(dot(c, kU) + 0.5, dot(c, kV) + 0.5);\n"                           \
    "}\n"                                                                              \
    /* A run of plane bytes longer than a row continues on the next row. */            \
    "vec2 wrapRows(vec2 base, float w) {\n"                                            \
    "    float add = floor(base.x / w);\n"                                             \
    "    base.x -= add * w;\n"                                                         \
    "    base.y += add;\n"                                                             \
    "    return base;\n"                                                               \
    "}\n"                                                                              \
    "vec4 packLuma(vec2 pos, vec2 size) {\n"                                           \
    "    vec2 base = wrapRows(pos * 4.0 * size, size.x);\n"                            \
    "    return vec4(lumaAt(base, size), lumaAt(base + vec2(1.0, 0.0), size),\n"       \
    "                lumaAt(base + vec2(2.0, 0.0), size), lumaAt(base + vec2(3.0, 0.0), size));\n" \
    "}\n"

// Semi-planar chroma: two (first, second) pairs per output pixel.
#define QZ_RGB2YUV_SEMIPLANAR                                                   \
    "vec4 packPairs(vec2 pos, vec2 size, bool vFirst) {\n"                      \
    "    vec2 base = wrapRows(vec2(pos.x, pos.y - 0.25) * 4.0 * size, size.x);\n" \
    "    base.y *= 2.0;\n"                                                      \
    "    base -= vec2(2.0, 2.0);\n"                                             \
    "    if (vFirst) base.x -= 2.0; else base.y -= 2.0;\n"                      \
    "    vec2 c0 = chromaAt(base, size);\n"                                     \
    "    vec2 c1 = chromaAt(base + vec2(2.0, 0.0), size);\n"                    \
    "    return vFirst ? vec4(c0.y, c0.x, c1.y, c1.x) : vec4(c0.x, c0.y, c1.x, c1.y);\n" \
    "}\n"

// Planar chroma: four bytes of one quarter-size plane per output pixel.
// The first band starts at 0.25 (back-off 4), the second at 0.3125 (back-off 2).
#define QZ_RGB2YUV_PLANAR                                                        \
    "vec4 packPlane(vec2 pos, vec2 size, float start, float back, bool wantU) {\n" \
    "    vec2 base = wrapRows(vec2(pos.x, pos.y - start) * 8.0 * size, size.x);\n" \
    "    base.y *= 2.0;\n"                                                       \
    "    base -= vec2(back, back);\n"                                            \
    "    base.y -= 2.0;\n"                                                       \
    "    vec4 bytes;\n"                                                          \
    "    vec2 c = chromaAt(base, size);\n"                                       \
    "    bytes.r = wantU ? c.x : c.y;\n"                                         \
    "    c = chromaAt(base + vec2(2.0, 0.0), size);\n"                           \
    "    bytes.g = wantU ? c.x : c.y;\n"                                         \
    "    c = chromaAt(base + vec2(4.0, 0.0), size);\n"                           \
    "    bytes.b = wantU ? c.x : c.y;\n"                                         \
    "    c = chromaAt(base + vec2(6.0, 0.0), size);\n"                           \
    "    bytes.a = wantU ? c.x : c.y;\n"                                         \
    "    return bytes;\n"                                                        \
    "}\n"                                                                        \
    /* The first band ends mid-row when height is not a multiple of 16. */       \
    "bool inFirstBand(vec2 pos) {\n"                                             \
    "    float f = fract(height / 16.0);\n"                                      \
    "    float e = f != 0.0 ? (1.0 - f) / height : 0.0;\n"                       \
    "    if (pos.y > 0.3125) return false;\n"                                    \
    "    return !((pos.y == 0.3125 || pos.y == 0.3125 - e) && pos.x >= f);\n"    \
    "}\n"

const char* const sf_rgb2yuvnv12 = QZ_RGB2YUV_COMMON QZ_RGB2YUV_SEMIPLANAR R"(
void main() {
    vec2 size = vec2(width, height);
    vec2 pos = vTexcoord;
    if (pos.y < 0.25) {
        gl_FragColor = packLuma(pos, size);
        return;
    }
    // The chroma band may end mid-row when height is not a multiple of 16.
    float l = 0.0625 * height;
    float whole = floor(l);
    float part = fract(l);
    vec2 limit = vec2(part + part, whole / height + whole / height + 0.25);
    if (pos.y < limit.y || (pos.y == limit.y && pos.x < limit.x)) {
        gl_FragColor = packPairs(pos, size, false);
        return;
    }
    discard;
}
)";

const char* const sf_rgb2yuvnv21 = QZ_RGB2YUV_COMMON QZ_RGB2YUV_SEMIPLANAR R"(
void main() {
    vec2 size = vec2(width, height);
    vec2 pos = vTexcoord;
    if (pos.y < 0.25) {
        gl_FragColor = packLuma(pos, size);
        return;
    }
    if (pos.y <= 0.375) {
        gl_FragColor = packPairs(pos, size, true);
        return;
    }
    discard;
}
)";

// YV12: V plane first, then U.
const char* const sf_rgb2yuvyv12 = QZ_RGB2YUV_COMMON QZ_RGB2YUV_PLANAR R"(
void main() {
    vec2 size = vec2(width, height);
    vec2 pos = vTexcoord;
    if (pos.y < 0.25) {
        gl_FragColor = packLuma(pos, size);
        return;
    }
    if (inFirstBand(pos)) {
        gl_FragColor = packPlane(pos, size, 0.25, 4.0, false);
        return;
    }
    if (pos.y <= 0.375) {
        gl_FragColor = packPlane(pos, size, 0.3125, 2.0, true);
        return;
    }
    discard;
}
)";

// I420: U plane first, then V.
const char* const sf_rgb2yuvi420 = QZ_RGB2YUV_COMMON QZ_RGB2YUV_PLANAR R"(
void main() {
    vec2 size = vec2(width, height);
    vec2 pos = vTexcoord;
    if (pos.y < 0.25) {
        gl_FragColor = packLuma(pos, size);
        return;
    }
    if (inFirstBand(pos)) {
        gl_FragColor = packPlane(pos, size, 0.25, 4.0, true);
        return;
    }
    if (pos.y <= 0.375) {
        gl_FragColor = packPlane(pos, size, 0.3125, 2.0, false);
        return;
    }
    discard;
}
)";
