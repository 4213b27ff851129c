// Skin smoothing, whitening and the beauty warp. All passes read the picture
// so far from aTexture0 through the full-screen vertex stage, except the
// ones that need per-vertex work: the skin-hue samplers and the face warp.
#include "shaders/ZuShaderSource.h"

#define QZ_BEAUTY_PRECISION \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\nprecision mediump float;\n#endif\n"

// Hue in [0, 1) of an RGB colour; 0 for greys.
#define QZ_BEAUTY_HUE                                                         \
    "float skinHue(vec3 c) {\n"                                               \
    "    float mx = max(max(c.r, c.g), c.b);\n"                               \
    "    float mn = min(min(c.r, c.g), c.b);\n"                               \
    "    float chroma = mx - mn;\n"                                           \
    "    if (chroma <= 0.0) return 0.0;\n"                                    \
    "    float h;\n"                                                          \
    "    if (mx == c.r) h = (c.g - c.b) / chroma / 6.0;\n"                    \
    "    else if (mx == c.g) h = ((c.b - c.r) / chroma + 2.0) / 6.0;\n"       \
    "    else h = ((c.r - c.g) / chroma + 4.0) / 6.0;\n"                      \
    "    if (h < 0.0) h += 1.0;\n"                                            \
    "    return h;\n"                                                         \
    "}\n"

// The smoothers' shared head: uniforms and one bilateral tap. A tap's weight
// falls with its distance in colour, per channel, so edges stay sharp.
#define QZ_BUFFING_HEAD                                                       \
    "uniform sampler2D aTexture0;\n"                                          \
    "uniform vec2 singleStepOffset;\n"                                        \
    "uniform vec4 params;\n"                                                  \
    "varying vec2 vTexcoord;\n" QZ_BEAUTY_HUE                                 \
    "void addTap(inout vec3 sum, inout vec3 total, vec3 c, vec2 offset, float w) {\n" \
    "    vec3 s = texture2D(aTexture0, vTexcoord + offset * singleStepOffset).rgb;\n" \
    "    vec3 weight = w * max(1.0 - abs(c - s) * radio, 0.0);\n"             \
    "    sum += s * weight;\n"                                                \
    "    total += weight;\n"                                                  \
    "}\n"

// The eight taps at (+-5, +-8) and (+-8, +-5) with one weight.
#define QZ_BUFFING_RING8(w)                                                   \
    "    addTap(sum, total, c, vec2(5.0, 8.0), " w ");\n"                     \
    "    addTap(sum, total, c, vec2(-5.0, 8.0), " w ");\n"                    \
    "    addTap(sum, total, c, vec2(5.0, -8.0), " w ");\n"                    \
    "    addTap(sum, total, c, vec2(-5.0, -8.0), " w ");\n"                   \
    "    addTap(sum, total, c, vec2(8.0, 5.0), " w ");\n"                     \
    "    addTap(sum, total, c, vec2(-8.0, 5.0), " w ");\n"                    \
    "    addTap(sum, total, c, vec2(8.0, -5.0), " w ");\n"                    \
    "    addTap(sum, total, c, vec2(-8.0, -5.0), " w ");\n"

// The four taps at (+-10, 0) and (0, +-10).
#define QZ_BUFFING_CROSS4(w)                                                  \
    "    addTap(sum, total, c, vec2(10.0, 0.0), " w ");\n"                    \
    "    addTap(sum, total, c, vec2(-10.0, 0.0), " w ");\n"                   \
    "    addTap(sum, total, c, vec2(0.0, 10.0), " w ");\n"                    \
    "    addTap(sum, total, c, vec2(0.0, -10.0), " w ");\n"

// The shared body: blur inside the skin gate, lift the result, then whiten
// everywhere. WHITEN_BY_ALPHA picks whether whitening follows the luminance.
#define QZ_BUFFING_MAIN                                                       \
    "void main() {\n"                                                         \
    "    vec4 source = texture2D(aTexture0, vTexcoord);\n"                    \
    "    if (params.r == 0.0) { gl_FragColor = source; return; }\n"           \
    "    vec3 c = source.rgb;\n"                                              \
    "    float mx = max(max(c.r, c.g), c.b);\n"                               \
    "    float mn = min(min(c.r, c.g), c.b);\n"                               \
    "    float alpha = pow(0.5 * (mx + mn), 0.8);\n"                          \
    "    vec3 s = c;\n"                                                       \
    "    if (inSkinGate(skinHue(c))) {\n"                                     \
    "        vec3 sum = c;\n"                                                 \
    "        vec3 total = vec3(1.0);\n"                                       \
    "        gatherTaps(sum, total, c);\n"                                    \
    "        s = sum / total;\n"                                              \
    "        s = max(s, 2.2 * s - 1.2 * c);\n"                                \
    "        s = mix(c, s, alpha * params.r);\n"                              \
    "    }\n"                                                                 \
    "    float whiten = WHITEN_BY_ALPHA ? alpha * params.g : params.g;\n"     \
    "    gl_FragColor = vec4(mix(s, pow(max(s, 0.0), vec3(vLambda)), whiten), 1.0);\n" \
    "}\n"

#define QZ_BUFFING_GATE_ES2 \
    "bool inSkinGate(float hue) { return hue > 0.02 && hue < 0.15; }\n"
// Before any face has been seen there is no skin to sample: hueFace is then
// negative and the fixed skin band of the other qualities applies.
#define QZ_BUFFING_GATE_FACE \
    "varying float hueFace;\n" \
    "bool inSkinGate(float hue) {\n" \
    "    return hueFace < 0.0 ? (hue > 0.02 && hue < 0.15) : abs(hue - hueFace) < 0.1;\n" \
    "}\n"

#define QZ_BUFFING_CONSTS(radio, lambda, byAlpha) \
    "const float radio = " radio ";\nconst float vLambda = " lambda ";\n#define WHITEN_BY_ALPHA " byAlpha "\n"

// The face-aware smoothers find the skin hue once per vertex: the mean of
// six samples on the cheeks, so the gate follows the person's own tone.
const char* const sv_faceBuffingWhiteEs30 = QZ_BEAUTY_HUE R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
uniform sampler2D aTexture0;
uniform vec2 location0;
uniform vec2 location1;
uniform vec2 location2;
uniform vec2 location3;
uniform vec2 location4;
uniform vec2 location5;
uniform float faceKnown;
varying vec2 vTexcoord;
varying float hueFace;
void main() {
    gl_Position = aPosition;
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
    vec3 mean = texture2DLod(aTexture0, location0, 0.0).rgb + texture2DLod(aTexture0, location1, 0.0).rgb +
                texture2DLod(aTexture0, location2, 0.0).rgb + texture2DLod(aTexture0, location3, 0.0).rgb +
                texture2DLod(aTexture0, location4, 0.0).rgb + texture2DLod(aTexture0, location5, 0.0).rgb;
    hueFace = faceKnown > 0.5 ? skinHue(mean / 6.0) : -1.0;
}
)";

const char* const sf_faceBuffingWhiteLow =
    QZ_BEAUTY_PRECISION QZ_BUFFING_CONSTS("5.0", "0.8", "true") QZ_BUFFING_HEAD QZ_BUFFING_GATE_ES2
    "void gatherTaps(inout vec3 sum, inout vec3 total, vec3 c) {\n"
    "    addTap(sum, total, c, vec2(0.0, 10.0), 0.6065);\n"
    "    addTap(sum, total, c, vec2(7.07, -5.0), 0.6065);\n"
    "    addTap(sum, total, c, vec2(-7.07, -5.0), 0.6065);\n"
    "    addTap(sum, total, c, vec2(0.0, -12.0), 0.4868);\n"
    "    addTap(sum, total, c, vec2(9.898, 6.0), 0.4868);\n"
    "    addTap(sum, total, c, vec2(-9.898, 6.0), 0.4868);\n"
    "}\n" QZ_BUFFING_MAIN;

const char* const sf_faceBuffingWhite =
    QZ_BEAUTY_PRECISION QZ_BUFFING_CONSTS("5.5", "0.8", "true") QZ_BUFFING_HEAD QZ_BUFFING_GATE_ES2
    "void gatherTaps(inout vec3 sum, inout vec3 total, vec3 c) {\n" QZ_BUFFING_RING8("0.5296") "}\n" QZ_BUFFING_MAIN;

const char* const sf_faceBuffingWhiteHigh =
    QZ_BEAUTY_PRECISION QZ_BUFFING_CONSTS("6.0", "0.7", "true") QZ_BUFFING_HEAD QZ_BUFFING_GATE_ES2
    "void gatherTaps(inout vec3 sum, inout vec3 total, vec3 c) {\n" QZ_BUFFING_RING8("0.6408")
        QZ_BUFFING_CROSS4("0.6065") "}\n" QZ_BUFFING_MAIN;

const char* const sf_faceBuffingWhiteEs30Low =
    QZ_BEAUTY_PRECISION QZ_BUFFING_CONSTS("3.0", "0.7", "true") QZ_BUFFING_HEAD QZ_BUFFING_GATE_FACE
    "void gatherTaps(inout vec3 sum, inout vec3 total, vec3 c) {\n"
    "    addTap(sum, total, c, vec2(0.0, -8.0), 0.8521);\n"
    "    addTap(sum, total, c, vec2(5.656, 4.0), 0.8521);\n"
    "    addTap(sum, total, c, vec2(-5.656, 4.0), 0.8521);\n"
    "    addTap(sum, total, c, vec2(0.0, 10.0), 0.6977);\n"
    "    addTap(sum, total, c, vec2(7.07, -5.0), 0.6977);\n"
    "    addTap(sum, total, c, vec2(-7.07, -5.0), 0.6977);\n"
    "}\n" QZ_BUFFING_MAIN;

const char* const sf_faceBuffingWhiteEs30 =
    QZ_BEAUTY_PRECISION QZ_BUFFING_CONSTS("5.5", "0.8", "true") QZ_BUFFING_HEAD QZ_BUFFING_GATE_FACE
    "void gatherTaps(inout vec3 sum, inout vec3 total, vec3 c) {\n" QZ_BUFFING_RING8("0.5296") "}\n" QZ_BUFFING_MAIN;

// The best quality whitens at full strength, not scaled by luminance.
const char* const sf_faceBuffingWhiteEs30High =
    QZ_BEAUTY_PRECISION QZ_BUFFING_CONSTS("6.0", "0.8", "false") QZ_BUFFING_HEAD QZ_BUFFING_GATE_FACE
    "void gatherTaps(inout vec3 sum, inout vec3 total, vec3 c) {\n" QZ_BUFFING_RING8("0.5296")
        QZ_BUFFING_CROSS4("0.4895") "}\n" QZ_BUFFING_MAIN;

// Green-channel soften: a high-pass of green sharpened into a near-binary
// mask, then the picture brightened where the mask is dark (smooth skin).
#define QZ_SOFTEN_SKIN                                                        \
    "uniform sampler2D aTexture0;\n"                                          \
    "uniform vec2 imageSize;\n"                                               \
    "uniform float softenStrength;\n"                                         \
    "varying vec2 vTexcoord;\n"                                               \
    "float greenTap(float central, vec2 offset, vec2 stepSize, inout float total) {\n" \
    "    float s = texture2D(aTexture0, vTexcoord + offset * stepSize).g;\n"  \
    "    float w = 0.08 * (1.0 - min(abs(central - s) * 3.6, 1.0));\n"        \
    "    total += w;\n"                                                       \
    "    return s * w;\n"                                                     \
    "}\n"                                                                     \
    "vec3 softenSkin(vec3 c) {\n"                                             \
    "    vec2 stepSize = vec2(1.6 / imageSize.x, 1.6 / imageSize.y);\n"       \
    "    float central = c.g;\n"                                              \
    "    float total = 0.2;\n"                                                \
    "    float sum = central * 0.2;\n"                                        \
    "    sum += greenTap(central, vec2(0.0, -10.0), stepSize, total);\n"      \
    "    sum += greenTap(central, vec2(5.0, -8.0), stepSize, total);\n"       \
    "    sum += greenTap(central, vec2(8.0, -5.0), stepSize, total);\n"       \
    "    sum += greenTap(central, vec2(10.0, 0.0), stepSize, total);\n"       \
    "    sum += greenTap(central, vec2(8.0, 5.0), stepSize, total);\n"        \
    "    sum += greenTap(central, vec2(5.0, 8.0), stepSize, total);\n"        \
    "    sum += greenTap(central, vec2(0.0, 10.0), stepSize, total);\n"       \
    "    sum += greenTap(central, vec2(-5.0, 8.0), stepSize, total);\n"       \
    "    sum += greenTap(central, vec2(-8.0, 5.0), stepSize, total);\n"       \
    "    sum += greenTap(central, vec2(-10.0, 0.0), stepSize, total);\n"      \
    "    sum += greenTap(central, vec2(-8.0, -5.0), stepSize, total);\n"      \
    "    sum += greenTap(central, vec2(-5.0, -8.0), stepSize, total);\n"      \
    "    sum = sum / total;\n"                                                \
    "    float h = c.g - sum + 0.5;\n"                                        \
    "    for (int i = 0; i < 5; ++i)\n"                                       \
    "        h = h <= 0.5 ? 2.0 * h * h : 1.0 - 2.0 * (1.0 - h) * (1.0 - h);\n" \
    "    float aa = 1.0 + pow(max(sum, 0.0), 0.3) * 0.07;\n"                  \
    "    vec3 smoothed = clamp(c * aa - h * (aa - 1.0), 0.0, 1.0);\n"         \
    "    smoothed = mix(c, smoothed, pow(c.g, 0.33));\n"                      \
    "    smoothed = mix(c, smoothed, pow(c.g, 0.39));\n"                      \
    "    return mix(c, smoothed, softenStrength);\n"                          \
    "}\n"

const char* const sf_faceBeautify = QZ_BEAUTY_PRECISION QZ_SOFTEN_SKIN R"(
void main() {
    vec3 c = texture2D(aTexture0, vTexcoord).rgb;
    gl_FragColor = vec4(pow(softenSkin(c), vec3(0.96)), 1.0);
}
)";

// The softened picture through the skin-tone curves of aTexture1, a 256 x 1
// table: each channel looks itself up at the centre of its texel.
const char* const sf_faceBeautifyCurve = QZ_BEAUTY_PRECISION QZ_SOFTEN_SKIN R"(
uniform sampler2D aTexture1;
void main() {
    vec3 c = texture2D(aTexture0, vTexcoord).rgb;
    vec3 s = pow(softenSkin(c), vec3(0.96));
    vec3 at = (clamp(s, 0.0, 1.0) * 255.0 + 0.5) / 256.0;
    gl_FragColor = vec4(texture2D(aTexture1, vec2(at.r, 0.5)).r,
                        texture2D(aTexture1, vec2(at.g, 0.5)).g,
                        texture2D(aTexture1, vec2(at.b, 0.5)).b, 1.0);
}
)";

// The face-aware soften takes the mean skin colour of twelve cheek samples
// once per vertex; pixels far from it in red are not skin.
const char* const sv_faceBeautifyEs30 = R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
uniform sampler2D aTexture0;
uniform vec2 location0;
uniform vec2 location1;
uniform vec2 location2;
uniform vec2 location3;
uniform vec2 location4;
uniform vec2 location5;
uniform vec2 location6;
uniform vec2 location7;
uniform vec2 location8;
uniform vec2 location9;
uniform vec2 location10;
uniform vec2 location11;
varying vec2 vTexcoord;
varying vec3 skinMean;
void main() {
    gl_Position = aPosition;
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
    vec3 sum = texture2DLod(aTexture0, location0, 0.0).rgb + texture2DLod(aTexture0, location1, 0.0).rgb +
               texture2DLod(aTexture0, location2, 0.0).rgb + texture2DLod(aTexture0, location3, 0.0).rgb +
               texture2DLod(aTexture0, location4, 0.0).rgb + texture2DLod(aTexture0, location5, 0.0).rgb +
               texture2DLod(aTexture0, location6, 0.0).rgb + texture2DLod(aTexture0, location7, 0.0).rgb +
               texture2DLod(aTexture0, location8, 0.0).rgb + texture2DLod(aTexture0, location9, 0.0).rgb +
               texture2DLod(aTexture0, location10, 0.0).rgb + texture2DLod(aTexture0, location11, 0.0).rgb;
    skinMean = sum / 12.0;
}
)";

const char* const sf_faceBeautifyEs30 = QZ_BEAUTY_PRECISION QZ_SOFTEN_SKIN R"(
varying vec3 skinMean;
void main() {
    vec4 source = texture2D(aTexture0, vTexcoord);
    if (abs(source.r - skinMean.r) >= 0.5) { gl_FragColor = source; return; }
    gl_FragColor = vec4(pow(softenSkin(source.rgb), vec3(0.96)), 1.0);
}
)";

// The face warp moves only texture coordinates of a fine grid: eyes grow by
// a power falloff around each eye, cheeks and chin are pulled toward the nose.
const char* const sv_faceBeautyOutline = R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
uniform vec2 location0;
uniform vec2 location1;
uniform vec2 location2;
uniform vec2 location3;
uniform vec2 location4;
uniform vec2 location5;
uniform vec2 location6;
uniform vec2 location7;
uniform vec2 location8;
uniform vec2 location9;
uniform vec2 location10;
uniform vec2 location11;
uniform vec2 eyelarge;
uniform vec4 faceslim;
varying vec2 vTexcoord;

vec2 faceStretch(vec2 t, vec2 origin, vec2 target, float radius, float curve) {
    if (radius <= 0.0) return vec2(0.0);
    vec2 direction = target - origin;
    float len = length(direction);
    if (len > radius) direction *= radius / len;
    float infect = pow(clamp(1.0 - distance(t, origin) / radius, 0.0, 1.0), curve);
    return direction * infect;
}

vec2 growEye(vec2 t, vec2 eye, float radius, float power) {
    float d = distance(vec2(t.x * 0.5625, t.y), vec2(eye.x * 0.5625, eye.y));
    if (radius <= 0.0 || d > radius) return t;
    float w = pow(max(d / radius, 1e-6), power);
    return eye + (t - eye) * w;
}

void main() {
    gl_Position = vec4(aPosition.xy, 0.0, 1.0);
    vec2 t = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
    vec2 nose = location3;
    if (nose.x > 0.03 && nose.y > 0.03) {
        vec2 aspect = vec2(0.72, 1.28);
        float eyeDistance = distance(location4 * aspect, location5 * aspect);
        float eyeRadius = 0.3 * distance(location6 * aspect, location7 * aspect);
        t = growEye(t, location4, eyeRadius, eyelarge.x);
        t = growEye(t, location5, eyeRadius, eyelarge.y);
        t -= faceStretch(t, location0, nose + (location0 - nose) * faceslim.x, eyeDistance, 1.0);
        t -= faceStretch(t, location2, nose + (location2 - nose) * faceslim.x, eyeDistance, 1.0);
        t -= faceStretch(t, location1, nose + (location1 - nose) * faceslim.y, 1.5 * eyeDistance, 1.0);
        vec2 chinCenter = nose + (location1 - nose) * 0.7;
        t -= faceStretch(t, location8, chinCenter + (location8 - chinCenter) * faceslim.z, 1.2 * eyeDistance, 1.0);
        t -= faceStretch(t, location9, chinCenter + (location9 - chinCenter) * faceslim.z, 1.2 * eyeDistance, 1.0);
        t -= faceStretch(t, location10, chinCenter + (location10 - chinCenter) * faceslim.w, 1.2 * eyeDistance, 1.0);
        t -= faceStretch(t, location11, chinCenter + (location11 - chinCenter) * faceslim.w, 1.2 * eyeDistance, 1.0);
    }
    vTexcoord = t;
}
)";

