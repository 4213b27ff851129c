// Drawing through the model and view-projection matrices: textured, tinted,
// flat-coloured, debug geometry and the colour-pick pass. Positions are
// attribute vec4, so 2D and 3D vertex formats both feed them (GL fills the
// missing z with 0 and w with 1).
#include "shaders/ZuShaderSource.h"

#define QZ_FRAGMENT_PRECISION \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\nprecision mediump float;\n#endif\n"

#define QZ_MATRICES "uniform mat4 aMatrixM;\nuniform mat4 aMatrixVP;\n"

// Vertex colours are unnormalised bytes, hence the division by 255.
const char* const sv_NormalV2CT1 = QZ_MATRICES R"(
attribute vec4 aPosition;
attribute vec4 aColor;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
varying vec2 vTexcoord;
varying vec4 vColor;
void main() {
    gl_Position = aMatrixVP * aMatrixM * aPosition;
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
    vColor = aColor / 255.0;
}
)";

const char* const sf_NormalV2CT1 = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
varying vec4 vColor;
void main() {
    gl_FragColor = vColor * texture2D(aTexture0, vTexcoord);
}
)";

#define QZ_TEXTURED_VERTEX                                   \
    QZ_MATRICES                                              \
    "attribute vec4 aPosition;\n"                            \
    "attribute vec2 aTexcoord0;\n"                           \
    "varying vec2 vTexcoord;\n"                              \
    "void main() {\n"                                        \
    "    gl_Position = aMatrixVP * aMatrixM * aPosition;\n"  \
    "    vTexcoord = aTexcoord0;\n"                          \
    "}\n"

#define QZ_TEXTURED_FRAGMENT                                 \
    QZ_FRAGMENT_PRECISION                                    \
    "uniform sampler2D aTexture0;\n"                         \
    "varying vec2 vTexcoord;\n"                              \
    "void main() {\n"                                        \
    "    gl_FragColor = texture2D(aTexture0, vTexcoord);\n"  \
    "}\n"

const char* const sv_normal2d = QZ_TEXTURED_VERTEX;
const char* const sf_normal = QZ_TEXTURED_FRAGMENT;
const char* const sv_normal3d = QZ_TEXTURED_VERTEX;
const char* const sf_normal3d = QZ_TEXTURED_FRAGMENT;

#define QZ_FLAT_VERTEX                                       \
    QZ_MATRICES                                              \
    "attribute vec4 aPosition;\n"                            \
    "void main() {\n"                                        \
    "    gl_Position = aMatrixVP * aMatrixM * aPosition;\n"  \
    "}\n"

#define QZ_FLAT_FRAGMENT                                     \
    QZ_FRAGMENT_PRECISION                                    \
    "uniform vec4 u_color;\n"                                \
    "void main() {\n"                                        \
    "    gl_FragColor = u_color;\n"                          \
    "}\n"

const char* const sv_normalv2 = QZ_FLAT_VERTEX;
const char* const sf_normalcolor = QZ_FLAT_FRAGMENT;
// The pick pass writes each object's id as a flat colour.
const char* const sv_colorselect = QZ_FLAT_VERTEX;
const char* const sv_colorselect3d = QZ_FLAT_VERTEX;
const char* const sf_colorselect = QZ_FLAT_FRAGMENT;

// Spine attachments are picked by their visible texels only: a transparent
// texel writes (1, 0, 0, 0), which the pick read ignores as "nothing".
const char* const sv_colorselectspine = QZ_TEXTURED_VERTEX;
const char* const sf_colorselectspine = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform vec4 u_color;
varying vec2 vTexcoord;
void main() {
    if (texture2D(aTexture0, vTexcoord).a == 0.0) {
        gl_FragColor = vec4(1.0, 0.0, 0.0, 0.0);
    } else {
        gl_FragColor = u_color;
    }
}
)";

#define QZ_GEOMETRY_VERTEX(pointSize)                        \
    QZ_MATRICES                                              \
    "attribute vec4 aPosition;\n"                            \
    "attribute vec4 aColor;\n"                               \
    "varying vec4 vColor;\n"                                 \
    "void main() {\n"                                        \
    "    gl_Position = aMatrixVP * aMatrixM * aPosition;\n"  \
    "    gl_PointSize = " pointSize ";\n"                    \
    "    vColor = aColor / 255.0;\n"                         \
    "}\n"

#define QZ_VERTEX_COLOR_FRAGMENT                             \
    QZ_FRAGMENT_PRECISION                                    \
    "varying vec4 vColor;\n"                                 \
    "void main() {\n"                                        \
    "    gl_FragColor = vColor;\n"                           \
    "}\n"

const char* const sv_geometry = QZ_GEOMETRY_VERTEX("10.0");
const char* const sf_geometry = QZ_VERTEX_COLOR_FRAGMENT;
const char* const sv_geometry3d = QZ_GEOMETRY_VERTEX("5.0");
const char* const sf_geometry3d = QZ_VERTEX_COLOR_FRAGMENT;

#define QZ_BLEND_VERTEX                                      \
    QZ_MATRICES                                              \
    "attribute vec4 aPosition;\n"                            \
    "attribute vec2 aTexcoord0;\n"                           \
    "attribute vec2 aTexcoord1;\n"                           \
    "varying vec2 vTexcoord0;\n"                             \
    "varying vec2 vTexcoord1;\n"                             \
    "void main() {\n"                                        \
    "    gl_Position = aMatrixVP * aMatrixM * aPosition;\n"  \
    "    vTexcoord0 = aTexcoord0;\n"                         \
    "    vTexcoord1 = aTexcoord1;\n"                         \
    "}\n"

const char* const sv_blend2d = QZ_BLEND_VERTEX;
const char* const sv_blend3d = QZ_BLEND_VERTEX;
const char* const sf_blend = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
uniform float blendFrac;
varying vec2 vTexcoord0;
varying vec2 vTexcoord1;
void main() {
    gl_FragColor = mix(texture2D(aTexture0, vTexcoord0), texture2D(aTexture1, vTexcoord1), blendFrac);
}
)";

// A camera image handed over as an external (EGL image) texture.
const char* const sv_realcamera = QZ_MATRICES R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
varying vec2 vTexcoord;
void main() {
    vec4 p = aMatrixVP * aMatrixM * aPosition;
    gl_Position = p / p.w;
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
}
)";

const char* const sf_realcamera = "#extension GL_OES_EGL_image_external : require\n" QZ_FRAGMENT_PRECISION R"(
uniform samplerExternalOES aTexture0;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = texture2D(aTexture0, vTexcoord);
}
)";

// Debug points: face landmarks in red through the matrices, screen points
// in green as given.
const char* const sv_debugFacePt = QZ_MATRICES R"(
attribute vec4 aPosition;
uniform float ptsize;
void main() {
    gl_Position = aMatrixVP * aMatrixM * aPosition;
    gl_PointSize = ptsize;
}
)";

const char* const sf_debugFacePt = QZ_FRAGMENT_PRECISION R"(
void main() {
    gl_FragColor = vec4(1.0, 0.0, 0.0, 1.0);
}
)";

const char* const sv_screencolor = R"(
attribute vec4 aPosition;
uniform float ptsize;
void main() {
    gl_Position = aPosition;
    gl_PointSize = ptsize;
}
)";

const char* const sf_screencolor = QZ_FRAGMENT_PRECISION R"(
void main() {
    gl_FragColor = vec4(0.0, 1.0, 0.0, 1.0);
}
)";

// A texture that scrolls: uOffset (kept in 0 to 1 by the material) moves the
// coordinate, and one wrap brings it back into the image.
// Flip-book frames: one textured quad, premultiplied alpha.
const char* const sv_animateFrame = QZ_TEXTURED_VERTEX;
const char* const sf_animateFrame = QZ_TEXTURED_FRAGMENT;

const char* const sv_texAni = QZ_TEXTURED_VERTEX;
const char* const sf_texAni = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform vec2 uOffset;
varying vec2 vTexcoord;
void main() {
    vec2 coord = vTexcoord + uOffset;
    coord -= step(1.0, coord);
    gl_FragColor = texture2D(aTexture0, coord);
}
)";
