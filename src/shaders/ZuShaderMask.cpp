// Pictures laid on the face triangles: the 2D mask, the face swap (camera
// pixels of the other face, faded by a soft mask drawn on the standard face)
// and the real-face overlay. Positions are frame pixels through the matrices.
#include "shaders/ZuShaderSource.h"

#define QZ_MASK_PRECISION \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\nprecision mediump float;\n#endif\n"

#define QZ_MASK_MATRICES "uniform mat4 aMatrixM;\nuniform mat4 aMatrixVP;\n"

// Texture coordinates are design pixels: tex0size scales them to 0..1 and
// texcoordClip flips v for pictures stored top row first.
const char* const sv_drawface2d = QZ_MASK_MATRICES R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 tex0size;
uniform vec2 texcoordClip;
varying vec2 vTexcoord;
void main() {
    vTexcoord = (aTexcoord0 * tex0size - 0.5) * texcoordClip + 0.5;
    gl_Position = aMatrixVP * aMatrixM * vec4(aPosition.xy, 0.0, 1.0);
}
)";

const char* const sf_drawface2d = QZ_MASK_PRECISION R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = texture2D(aTexture0, vTexcoord);
}
)";

// Coordinate 0: the other face in camera pixels; coordinate 1: the standard
// face's design pixels into the soft mask, stored top row first.
const char* const sv_drawfaceBlend = QZ_MASK_MATRICES R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
attribute vec2 aTexcoord1;
uniform vec2 tex0size;
uniform vec2 tex1size;
uniform vec2 texcoordClip;
varying vec2 vTexcoord0;
varying vec2 vTexcoord1;
void main() {
    vTexcoord0 = (aTexcoord0 * tex0size - 0.5) * texcoordClip + 0.5;
    vTexcoord1 = (aTexcoord1 * tex1size - 0.5) * vec2(1.0, -1.0) + 0.5;
    gl_Position = aMatrixVP * aMatrixM * vec4(aPosition.xy, 0.0, 1.0);
}
)";

// Premultiplied for blending with (one, one minus source alpha).
const char* const sf_drawfaceBlend = QZ_MASK_PRECISION R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
varying vec2 vTexcoord0;
varying vec2 vTexcoord1;
void main() {
    vec4 c0 = texture2D(aTexture0, vTexcoord0);
    float a = texture2D(aTexture1, vTexcoord1).a;
    gl_FragColor = vec4(c0.rgb * a, a);
}
)";

// The camera picture at 0..1 coordinates, opaque.
const char* const sv_3dFaceReal = QZ_MASK_MATRICES R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
varying vec2 vTexcoord;
void main() {
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
    gl_Position = aMatrixVP * aMatrixM * vec4(aPosition.xyz, 1.0);
}
)";

const char* const sf_3dFaceReal = QZ_MASK_PRECISION R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = vec4(texture2D(aTexture0, vTexcoord).rgb, 1.0);
}
)";
