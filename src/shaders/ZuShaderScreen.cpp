// Full-screen passes: copies, camera plane conversion, separation masks.
#include "shaders/ZuShaderSource.h"

#define QZ_FRAGMENT_PRECISION \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\nprecision mediump float;\n#endif\n"

// Position used as is; the texture coordinate is flipped about the centre by
// texcoordClip ((1, -1) flips vertically).
const char* const sv_screennor = R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
varying vec2 vTexcoord;
void main() {
    gl_Position = aPosition;
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
}
)";

const char* const sf_screennor = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = texture2D(aTexture0, vTexcoord);
}
)";

const char* const sf_rgba = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = texture2D(aTexture0, vTexcoord);
}
)";

// Red and blue exchanged: BGRA bytes uploaded as RGBA, or RGBA read out as BGRA.
const char* const sf_bgra = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = texture2D(aTexture0, vTexcoord).bgra;
}
)";

const char* const sf_defaultBlack = QZ_FRAGMENT_PRECISION R"(
void main() {
    gl_FragColor = vec4(0.0);
}
)";

// BT.601 video range to RGB. Planes arrive as one-byte luminance textures
// (I420, YV12: slot 1 V, slot 2 U) or a luminance-alpha chroma texture.
#define QZ_YUV_TO_RGB                                                    \
    "vec4 yuvToRgb(float y, float u, float v) {\n"                       \
    "    float luma = (y - 16.0 / 255.0) * 1.164;\n"                     \
    "    u -= 0.5;\n"                                                    \
    "    v -= 0.5;\n"                                                    \
    "    return vec4(luma + 1.596 * v, luma - 0.392 * u - 0.813 * v,\n"  \
    "                luma + 2.017 * u, 1.0);\n"                          \
    "}\n"

const char* const sf_yuv2rgb = QZ_FRAGMENT_PRECISION QZ_YUV_TO_RGB R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
uniform sampler2D aTexture2;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = yuvToRgb(texture2D(aTexture0, vTexcoord).r, texture2D(aTexture2, vTexcoord).r,
                            texture2D(aTexture1, vTexcoord).r);
}
)";

// NV12: U then V interleaved, read as luminance (U) and alpha (V).
const char* const sf_yuv2rgb12 = QZ_FRAGMENT_PRECISION QZ_YUV_TO_RGB R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
varying vec2 vTexcoord;
void main() {
    vec4 uv = texture2D(aTexture1, vTexcoord);
    gl_FragColor = yuvToRgb(texture2D(aTexture0, vTexcoord).r, uv.r, uv.a);
}
)";

// NV21: V then U interleaved.
const char* const sf_yuv2rgb21 = QZ_FRAGMENT_PRECISION QZ_YUV_TO_RGB R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
varying vec2 vTexcoord;
void main() {
    vec4 vu = texture2D(aTexture1, vTexcoord);
    gl_FragColor = yuvToRgb(texture2D(aTexture0, vTexcoord).r, vu.a, vu.r);
}
)";

// The mask (slot 1) arrives bottom-up from the host and is read with y
// flipped; where it is white the background is cut out.
const char* const sf_screennorseparation = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
varying vec2 vTexcoord;
void main() {
    vec4 background = texture2D(aTexture0, vTexcoord);
    vec4 mask = texture2D(aTexture1, vec2(vTexcoord.x, 1.0 - vTexcoord.y));
    gl_FragColor = vec4(background.rgb * (1.0 - mask.rgb), background.a * (1.0 - mask.r));
}
)";

// As above, with the soft edge of the mask painted in edgecolor.
const char* const sf_screennorseparationedge = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
uniform vec4 edgecolor;
varying vec2 vTexcoord;
void main() {
    vec4 background = texture2D(aTexture0, vTexcoord);
    vec4 mask = texture2D(aTexture1, vec2(vTexcoord.x, 1.0 - vTexcoord.y));
    if (mask.r > 0.05 && mask.r < 0.8) {
        gl_FragColor = edgecolor;
    } else {
        gl_FragColor = vec4(background.rgb * (1.0 - mask.rgb), background.a * (1.0 - mask.r));
    }
}
)";
