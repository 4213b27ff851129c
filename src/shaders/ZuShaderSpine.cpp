// Skeletal stickers and the head pictures that ride on their bones. Vertex
// colours are unnormalised bytes, premultiplied by the node.
#include "shaders/ZuShaderSource.h"

#define QZ_SPINE_PRECISION \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\nprecision mediump float;\n#endif\n"

const char* const sv_animateSpine = R"(
uniform mat4 aMatrixM;
uniform mat4 aMatrixVP;
attribute vec4 aPosition;
attribute vec4 aColor;
attribute vec2 aTexcoord0;
varying vec2 vTexcoord;
varying vec4 vColor;
varying vec2 vScreen;
void main() {
    gl_Position = aMatrixVP * aMatrixM * aPosition;
    vTexcoord = aTexcoord0;
    vColor = aColor / 255.0;
    vScreen = gl_Position.xy / gl_Position.w * 0.5 + 0.5;
}
)";

const char* const sf_animateSpine = QZ_SPINE_PRECISION R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
varying vec4 vColor;
void main() {
    gl_FragColor = vColor * texture2D(aTexture0, vTexcoord);
}
)";

// The mask is a screen-sized picture: its alpha keeps or cuts the sticker.
const char* const sf_spineMask = QZ_SPINE_PRECISION R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
varying vec2 vTexcoord;
varying vec4 vColor;
varying vec2 vScreen;
void main() {
    gl_FragColor = vColor * texture2D(aTexture0, vTexcoord) * texture2D(aTexture1, vScreen).a;
}
)";

// Positions arrive in clip space. The mask's red channel cuts the head out;
// the frame is laid over it. A slot without a picture counts as a white
// mask or an empty frame.
const char* const sv_texHead = R"(
attribute vec4 aPosition;
attribute vec4 aColor;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
varying vec2 vTexcoord;
varying float vAlpha;
void main() {
    gl_Position = aPosition;
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
    vAlpha = aColor.a / 255.0;
}
)";

const char* const sf_texHead = QZ_SPINE_PRECISION R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
uniform sampler2D aTexture2;
uniform float uMaskOn;
uniform float uFrameOn;
varying vec2 vTexcoord;
varying float vAlpha;
void main() {
    vec4 head = texture2D(aTexture0, vTexcoord);
    vec4 mask = uMaskOn > 0.5 ? texture2D(aTexture1, vTexcoord) : vec4(1.0);
    vec4 frame = uFrameOn > 0.5 ? texture2D(aTexture2, vTexcoord) : vec4(0.0);
    vec4 colour = vec4(head.rgb * mask.rgb, head.a * mask.r) + frame;
    gl_FragColor = colour * vAlpha;
}
)";
