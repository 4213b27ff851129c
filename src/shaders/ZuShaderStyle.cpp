// Style passes over the scene picture: sketch, channel shake, background
// keying, pencil drawing and the short screen effects.
#include "shaders/ZuShaderSource.h"

#define QZ_FRAGMENT_PRECISION \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\nprecision mediump float;\n#endif\n"

// Edges from the summed difference between the pixel and 72 samples around
// nine centres; black lines where the sum is large, then three tones by
// brightness: black, the hatching image, white.
const char* const sf_filterSketch = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
uniform float thresholdUpper;
uniform float thresholdDown;
uniform float thresholEdge;
uniform vec2 samplerSteps;
varying vec2 vTexcoord;
const vec3 kGrey = vec3(0.299, 0.587, 0.114);
float grey(vec2 uv) { return dot(texture2D(aTexture0, uv).rgb, kGrey); }
float ring(vec2 centre, float g0) {
    float sum = 0.0;
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx) {
            if (dx == 0 && dy == 0) continue;
            sum += g0 - grey(centre + vec2(float(dx), float(dy)) * samplerSteps);
        }
    return sum;
}
void main() {
    float g0 = grey(vTexcoord);
    vec2 s = samplerSteps;
    float edge = 0.0;
    // The centre counts five times, the four offsets once each.
    edge += 5.0 * ring(vTexcoord, g0);
    edge += ring(vTexcoord + vec2(0.0, s.y), g0);
    edge += ring(vTexcoord + vec2(0.0, 2.0 * s.y), g0);
    edge += ring(vTexcoord + vec2(s.x, 0.0), g0);
    edge += ring(vTexcoord + vec2(2.0 * s.x, 0.0), g0);
    edge = 1.0 - edge;
    vec3 colour;
    if (edge < thresholEdge) {
        colour = vec3(0.0);
    } else if (g0 > thresholdDown && g0 < thresholdUpper) {
        colour = texture2D(aTexture1, vTexcoord).rgb;
    } else if (g0 > thresholdDown) {
        colour = vec3(1.0);
    } else {
        colour = vec3(0.0);
    }
    gl_FragColor = vec4(colour, 1.0);
}
)";

// Red and blue pulled apart sideways by an amount that beats over time and
// grows with the square of the distance from the centre.
const char* const sf_effectShake = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform float u_time;
uniform vec2 texel;
varying vec2 vTexcoord;
void main() {
    float t = u_time;
    float beat = sin(3.0 * t) * sin(12.0 * t) * sin(19.0 * t) * sin(33.0 * t);
    float amount = beat * beat * 200.0 + 6.0;
    vec2 coords = (vTexcoord - 0.5) * 2.0;
    vec2 p = amount * dot(coords, coords) * coords;
    float r = texture2D(aTexture0, vTexcoord - texel * p).r;
    float g = texture2D(aTexture0, vTexcoord).g;
    float b = texture2D(aTexture0, vTexcoord + texel * p).b;
    gl_FragColor = vec4(vec3(r, g, b) * (1.0 + amount * 0.002), 1.0);
}
)";

// A plain copy whose vertices move by offsetY (clip units).
const char* const sv_filterShake = R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
uniform float offsetY;
varying vec2 vTexcoord;
void main() {
    gl_Position = aPosition + vec4(0.0, offsetY, 0.0, 0.0);
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
}
)";

// The background's colour class is the one most samples along the top and
// the sides share (20 of 40); pixels of that class are painted out yellow.
const char* const sf_alphaMatting = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform vec4 colorMin;
uniform vec4 colorMax;
uniform vec4 colorOut;
uniform float blackValueMin, blackValueMax;
uniform float graySaturationMin, graySaturationMax;
uniform float grayValueMin, grayValueMax;
uniform float whiteSaturationMin, whiteSaturationMax;
uniform float whiteValueMin, whiteValueMax;
uniform float redHueMin, redHueMax;
uniform float orangeHueMin, orangeHueMax;
uniform float yellowHueMin, yellowHueMax;
uniform float greenHueMin, greenHueMax;
uniform float cyanHueMin, cyanHueMax;
uniform float blueHueMin, blueHueMax;
uniform float purpleHueMin, purpleHueMax;
uniform float pinkHueMin, pinkHueMax;
varying vec2 vTexcoord;
vec3 toHsv(vec3 c) {
    float hi = max(c.r, max(c.g, c.b));
    float lo = min(c.r, min(c.g, c.b));
    float d = hi - lo;
    float h = 0.0;
    if (d > 0.0) {
        if (hi == c.r) h = 60.0 * mod((c.g - c.b) / d, 6.0);
        else if (hi == c.g) h = 60.0 * ((c.b - c.r) / d + 2.0);
        else h = 60.0 * ((c.r - c.g) / d + 4.0);
    }
    float s = hi > 0.0 ? d / hi : 0.0;
    return vec3(h, s, hi);
}
bool inRange(float h, float lo, float hi) { return h >= lo && h <= hi; }
float colourClass(vec3 c) {
    vec3 hsv = toHsv(c);
    if (hsv.z <= blackValueMax) return 0.0;
    if (hsv.y <= graySaturationMax) return hsv.z <= grayValueMax ? 1.0 : 2.0;
    float h = hsv.x;
    if (h >= redHueMin || h <= redHueMax) return 3.0;
    if (inRange(h, orangeHueMin, orangeHueMax)) return 4.0;
    if (inRange(h, yellowHueMin, yellowHueMax)) return 5.0;
    if (inRange(h, greenHueMin, greenHueMax)) return 6.0;
    if (inRange(h, cyanHueMin, cyanHueMax)) return 7.0;
    if (inRange(h, blueHueMin, blueHueMax)) return 8.0;
    if (inRange(h, purpleHueMin, purpleHueMax)) return 9.0;
    if (inRange(h, pinkHueMin, pinkHueMax)) return 10.0;
    return 0.0;
}
float sampleClass(int i) {
    float j;
    vec2 uv;
    if (i < 10) {
        j = float(i);
        uv = vec2(0.01, 0.99 - 0.015 * j);
    } else if (i < 30) {
        j = float(i - 10);
        uv = vec2(0.01 + 0.04 * j, 0.99);
    } else {
        j = float(i - 30);
        uv = vec2(0.99, 0.99 - 0.015 * j);
    }
    return colourClass(texture2D(aTexture0, uv).rgb);
}
void main() {
    float counts[11];
    for (int k = 0; k < 11; ++k) counts[k] = 0.0;
    float background = -1.0;
    for (int i = 0; i < 40; ++i) {
        float c = sampleClass(i);
        for (int k = 0; k < 11; ++k) {
            if (float(k) == c) {
                counts[k] += 1.0;
                if (counts[k] >= 20.0 && background < 0.0) background = c;
            }
        }
    }
    vec4 pixel = texture2D(aTexture0, vTexcoord);
    gl_FragColor = (background >= 0.0 && colourClass(pixel.rgb) == background) ? vec4(1.0, 1.0, 0.0, 1.0)
                                                                               : pixel;
}
)";

// A pencil drawing: grey paper tone under dark strokes that follow the
// picture's edges. lineWidth is the edge probe's reach in texels,
// lineLength how many probes a stroke averages along its direction, and
// toneLengthWeight how much of the shading hatch shows.
const char* const sf_filterPencilDrawing = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform vec2 tex0size;
uniform float lineWidth;
uniform float lineLength;
uniform float toneLengthWeight;
varying vec2 vTexcoord;
const vec3 kGrey = vec3(0.299, 0.587, 0.114);
float grey(vec2 uv) { return dot(texture2D(aTexture0, uv).rgb, kGrey); }
float gradient(vec2 uv, vec2 step) {
    float gx = grey(uv + vec2(step.x, 0.0)) - grey(uv - vec2(step.x, 0.0));
    float gy = grey(uv + vec2(0.0, step.y)) - grey(uv - vec2(0.0, step.y));
    return length(vec2(gx, gy));
}
void main() {
    vec2 texel = 1.0 / max(tex0size, vec2(1.0));
    vec2 step = texel * max(lineWidth, 1.0);
    float g = grey(vTexcoord);
    // Strokes: the edge strength averaged along the two diagonals, so that
    // lines come out a little longer than the edge that made them.
    float stroke = 0.0;
    float taps = clamp(lineLength, 1.0, 8.0);
    for (int i = -8; i <= 8; ++i) {
        float fi = float(i);
        if (abs(fi) > taps) continue;
        stroke += gradient(vTexcoord + vec2(fi, fi) * texel, step);
        stroke += gradient(vTexcoord + vec2(fi, -fi) * texel, step);
    }
    stroke = clamp(stroke / (2.0 * (2.0 * taps + 1.0)) * 10.0, 0.0, 1.0);
    // Tone: diagonal hatching that darkens with the picture.
    vec2 pixel = vTexcoord / texel;
    float hatch = 0.5 + 0.5 * sin((pixel.x + pixel.y) * 1.3);
    float tone = mix(1.0, g + (1.0 - g) * hatch, clamp(toneLengthWeight, 0.0, 1.0) * (1.0 - g));
    float ink = clamp(tone * (1.0 - stroke), 0.0, 1.0);
    gl_FragColor = vec4(vec3(ink), 1.0);
}
)";

// Half the picture, half one of seven bands of colour by height.
const char* const sf_screen7color = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    float band = floor(clamp(vTexcoord.y, 0.0, 0.9999) * 7.0);
    vec3 c = vec3(0.545, 0.0, 1.0);
    if (band < 1.0) c = vec3(1.0, 0.0, 0.0);
    else if (band < 2.0) c = vec3(1.0, 0.647, 0.0);
    else if (band < 3.0) c = vec3(1.0, 1.0, 0.0);
    else if (band < 4.0) c = vec3(0.0, 1.0, 0.0);
    else if (band < 5.0) c = vec3(0.0, 0.498, 1.0);
    else if (band < 6.0) c = vec3(1.0, 0.0, 1.0);
    vec4 pixel = texture2D(aTexture0, vTexcoord);
    gl_FragColor = vec4(0.5 * pixel.rgb + 0.5 * c, pixel.a);
}
)";

// Four copies of the picture, one per quarter.
const char* const sf_screencut4 = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = texture2D(aTexture0, fract(vTexcoord * 2.0));
}
)";

// The dome: textured, through the 3D camera.
const char* const sv_SkyDome = R"(
uniform mat4 aMatrixM;
uniform mat4 aMatrixVP;
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
varying vec2 vTexcoord;
void main() {
    gl_Position = aMatrixVP * aMatrixM * aPosition;
    vTexcoord = aTexcoord0;
}
)";

const char* const sf_SkyDome = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = texture2D(aTexture0, vTexcoord);
}
)";
