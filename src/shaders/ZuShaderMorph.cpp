// Lenses: a round or oval area of the picture swollen around a point.
#include "shaders/ZuShaderSource.h"

// Positions here are camera pixels, up to a few thousand: half floats would
// place the rim a quarter pixel off and shift the picture visibly.
#define QZ_FRAGMENT_PRECISION \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\nprecision mediump float;\n#endif\n"

// P is the fragment in camera pixels; inside the lens the picture is read
// nearer the centre by a smoothstep of the distance, so the weight is 0 on
// the rim (no seam) and 1 at the centre. A lens of no size changes nothing.
// Outside the rim the weight is 0 and the one fetch reads the fragment's
// own texel: no branch, so a software rasteriser fetches once, not twice.
const char* const sf_filterEnlargeEye = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform vec2 samplerSteps;
uniform float radius;
uniform float intensity;
uniform vec2 centralPos;
varying vec2 vTexcoord;
void main() {
    vec2 p = vTexcoord / samplerSteps;
    vec2 d = centralPos - p;
    float l = radius > 0.0 ? length(d) / radius : 2.0;
    float o = clamp(1.0 - l, 0.0, 1.0);
    o = o * o * (3.0 - 2.0 * o);
    gl_FragColor = texture2D(aTexture0, clamp(vTexcoord + intensity * d * samplerSteps * o, 0.0, 1.0));
}
)";

// The same lens stretched to an ellipse: l is the sum of the distances to
// the two foci over the major axis.
const char* const sf_filterEnlargeEllipse = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform vec2 samplerSteps;
uniform float radius;
uniform float intensity;
uniform vec2 PointPosL;
uniform vec2 PointPosR;
uniform vec2 PointPos;
varying vec2 vTexcoord;
void main() {
    vec2 p = vTexcoord / samplerSteps;
    vec2 d = PointPos - p;
    float l = radius > 0.0 ? (length(PointPosL - p) + length(PointPosR - p)) / (2.0 * radius) : 2.0;
    float o = clamp(1.0 - l, 0.0, 1.0);
    o = o * o * (3.0 - 2.0 * o);
    gl_FragColor = texture2D(aTexture0, clamp(vTexcoord + intensity * d * samplerSteps * o, 0.0, 1.0));
}
)";
