// Full-screen colour passes: tone curves, the named looks and the run-time
// curve look. Every pass reads the picture so far from aTexture0.
#include "shaders/ZuShaderSource.h"

#define QZ_FRAGMENT_PRECISION \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\nprecision mediump float;\n#endif\n"

// Per-channel curve images read at one height: red, green, blue each look up
// their own channel.
#define QZ_CURVE_LOOKUP                                                          \
    "vec3 curveLookup(sampler2D curves, vec3 c, float row) {\n"                  \
    "    return vec3(texture2D(curves, vec2(c.r, row)).r,\n"                     \
    "                texture2D(curves, vec2(c.g, row)).g,\n"                     \
    "                texture2D(curves, vec2(c.b, row)).b);\n"                    \
    "}\n"

// Three-row curve images: the red curve in the top row, green in the middle,
// blue at the bottom.
#define QZ_THREE_ROW_LOOKUP                                                      \
    "vec3 threeRowLookup(sampler2D curves, vec3 c) {\n"                          \
    "    return vec3(texture2D(curves, vec2(c.r, 0.1666666)).r,\n"               \
    "                texture2D(curves, vec2(c.g, 0.5)).g,\n"                     \
    "                texture2D(curves, vec2(c.b, 0.8333333)).b);\n"              \
    "}\n"

// Two-way maps: each channel replaced by the same channel at (x, channel).
#define QZ_MAP_LOOKUP                                                            \
    "vec3 mapLookup(sampler2D map, float x, vec3 c) {\n"                         \
    "    return vec3(texture2D(map, vec2(x, c.r)).r,\n"                          \
    "                texture2D(map, vec2(x, c.g)).g,\n"                          \
    "                texture2D(map, vec2(x, c.b)).b);\n"                         \
    "}\n"

// A colour cube stored as blue slices in tiles: blue picks two neighbouring
// tiles, red and green the place inside them, half a texel in from the edge.
#define QZ_CUBE_LOOKUP                                                           \
    "vec4 cubeLookup(sampler2D lut, vec4 c, float levels, float tiles, float side) {\n" \
    "    float blue = c.b * (levels - 1.0);\n"                                   \
    "    float n0 = floor(blue);\n"                                              \
    "    float n1 = min(n0 + 1.0, levels - 1.0);\n"                              \
    "    float width = 1.0 / tiles;\n"                                           \
    "    vec2 inner = vec2(0.5 / side) + (width - 1.0 / side) * c.rg;\n"         \
    "    float row0 = floor((n0 + 0.5) / tiles);\n"                              \
    "    float row1 = floor((n1 + 0.5) / tiles);\n"                              \
    "    vec2 p0 = vec2(n0 - row0 * tiles, row0) * width + inner;\n"             \
    "    vec2 p1 = vec2(n1 - row1 * tiles, row1) * width + inner;\n"             \
    "    vec3 graded = mix(texture2D(lut, p0).rgb, texture2D(lut, p1).rgb, blue - n0);\n" \
    "    return vec4(graded, c.a);\n"                                            \
    "}\n"

// Corners darkened towards the cube of the colour.
#define QZ_DARK_CORNERS                                                          \
    "vec3 darkCorners(vec3 c, vec2 uv) {\n"                                      \
    "    float dist = pow(smoothstep(0.0, 1.0, distance(uv, vec2(0.5))), 1.5);\n" \
    "    return mix(c, c * c * c, dist);\n"                                      \
    "}\n"

#define QZ_HSL                                                                   \
    "vec3 rgbToHsl(vec3 c) {\n"                                                  \
    "    float mx = max(max(c.r, c.g), c.b);\n"                                  \
    "    float mn = min(min(c.r, c.g), c.b);\n"                                  \
    "    float l = (mx + mn) * 0.5;\n"                                           \
    "    float d = mx - mn;\n"                                                   \
    "    if (d <= 0.0) return vec3(0.0, 0.0, l);\n"                              \
    "    float s = l < 0.5 ? d / (mx + mn) : d / (2.0 - mx - mn);\n"             \
    "    float h;\n"                                                             \
    "    if (mx == c.r) h = (c.g - c.b) / d + (c.g < c.b ? 6.0 : 0.0);\n"        \
    "    else if (mx == c.g) h = (c.b - c.r) / d + 2.0;\n"                       \
    "    else h = (c.r - c.g) / d + 4.0;\n"                                      \
    "    return vec3(h / 6.0, s, l);\n"                                          \
    "}\n"                                                                        \
    "float hueToRgb(float p, float q, float t) {\n"                              \
    "    if (t < 0.0) t += 1.0;\n"                                               \
    "    if (t > 1.0) t -= 1.0;\n"                                               \
    "    if (t < 1.0 / 6.0) return p + (q - p) * 6.0 * t;\n"                    \
    "    if (t < 0.5) return q;\n"                                               \
    "    if (t < 2.0 / 3.0) return p + (q - p) * (2.0 / 3.0 - t) * 6.0;\n"      \
    "    return p;\n"                                                            \
    "}\n"                                                                        \
    "vec3 hslToRgb(vec3 hsl) {\n"                                                \
    "    if (hsl.y <= 0.0) return vec3(hsl.z);\n"                                \
    "    float q = hsl.z < 0.5 ? hsl.z * (1.0 + hsl.y) : hsl.z + hsl.y - hsl.z * hsl.y;\n" \
    "    float p = 2.0 * hsl.z - q;\n"                                           \
    "    return vec3(hueToRgb(p, q, hsl.x + 1.0 / 3.0), hueToRgb(p, q, hsl.x),\n" \
    "                hueToRgb(p, q, hsl.x - 1.0 / 3.0));\n"                      \
    "}\n"

// Shifts for shadows, midtones and highlights, each weighted by where the
// channel's own value lies; optionally the old lightness is kept.
#define QZ_COLOR_BALANCE                                                         \
    QZ_HSL                                                                       \
    "vec3 colorBalance(vec3 c, vec3 shadows, vec3 midtones, vec3 highlights, bool keepLuminosity) {\n" \
    "    const float a = 0.25;\n"                                                \
    "    const float b = 0.333;\n"                                               \
    "    const float scale = 0.7;\n"                                             \
    "    vec3 sw = clamp((c - b) / -a + 0.5, 0.0, 1.0) * scale;\n"               \
    "    vec3 mw = clamp((c - b) / a + 0.5, 0.0, 1.0) * clamp((c + b - 1.0) / -a + 0.5, 0.0, 1.0) * scale;\n" \
    "    vec3 hw = clamp((c + b - 1.0) / a + 0.5, 0.0, 1.0) * scale;\n"          \
    "    vec3 result = clamp(c + shadows * sw + midtones * mw + highlights * hw, 0.0, 1.0);\n" \
    "    if (keepLuminosity) {\n"                                                \
    "        vec3 hsl = rgbToHsl(result);\n"                                     \
    "        float l = (max(max(c.r, c.g), c.b) + min(min(c.r, c.g), c.b)) * 0.5;\n" \
    "        result = hslToRgb(vec3(hsl.xy, l));\n"                              \
    "    }\n"                                                                    \
    "    return result;\n"                                                       \
    "}\n"

// Selective colour on pixels whose smallest channel is the given one: each
// channel loses (its amount + the black amount) times (mid - min).
#define QZ_SELECTIVE_COLOR                                                       \
    "vec3 selectiveColor(vec3 c, int lowest, vec4 amounts) {\n"                  \
    "    float mx = max(max(c.r, c.g), c.b);\n"                                  \
    "    float mn = min(min(c.r, c.g), c.b);\n"                                  \
    "    float low = lowest == 0 ? c.r : (lowest == 1 ? c.g : c.b);\n"           \
    "    if (low > mn || mx == mn) return c;\n"                                  \
    "    float mid = c.r + c.g + c.b - mx - mn;\n"                               \
    "    float l = dot(c, vec3(0.3, 0.6, 0.1));\n"                               \
    "    vec3 amount = clamp(amounts.rgb, c - 1.0, c);\n"                        \
    "    float black = clamp(amounts.a, l - 1.0, l);\n"                          \
    "    return clamp(c - (amount + black) * (mid - mn), 0.0, 1.0);\n"           \
    "}\n"

// The twelve-sample sharpen of the ink looks.
#define QZ_INK_SHARPEN                                                           \
    "vec3 inkSharpen(sampler2D tex, vec2 uv) {\n"                                \
    "    vec2 unit = vec2(0.1 / 720.0, 0.1 / 1280.0);\n"                         \
    "    vec3 centre = texture2D(tex, uv).rgb;\n"                                \
    "    vec3 ring = texture2D(tex, uv + vec2(0.0, -10.0) * unit).rgb\n"         \
    "        + texture2D(tex, uv + vec2(5.0, -8.0) * unit).rgb\n"                \
    "        + texture2D(tex, uv + vec2(8.0, -5.0) * unit).rgb\n"                \
    "        + texture2D(tex, uv + vec2(10.0, 0.0) * unit).rgb\n"                \
    "        + texture2D(tex, uv + vec2(8.0, 5.0) * unit).rgb\n"                 \
    "        + texture2D(tex, uv + vec2(5.0, 8.0) * unit).rgb\n"                 \
    "        + texture2D(tex, uv + vec2(0.0, 10.0) * unit).rgb\n"                \
    "        + texture2D(tex, uv + vec2(-5.0, 8.0) * unit).rgb\n"                \
    "        + texture2D(tex, uv + vec2(-8.0, 5.0) * unit).rgb\n"                \
    "        + texture2D(tex, uv + vec2(-10.0, 0.0) * unit).rgb\n"               \
    "        + texture2D(tex, uv + vec2(-8.0, -5.0) * unit).rgb\n"               \
    "        + texture2D(tex, uv + vec2(-5.0, -8.0) * unit).rgb;\n"              \
    "    vec3 sharp = (20.0 * centre - ring) / 8.0;\n"                           \
    "    return mix(centre, sharp, 1.0 - pow(centre.r, 1.2));\n"                 \
    "}\n"                                                                        \
    "vec3 inkCurve(vec3 c) {\n"                                                  \
    "    const float s = 0.1;\n"                                                 \
    "    return (c - s) * (c + s - 2.0) / ((1.0 - s) * (s - 1.0));\n"            \
    "}\n"

const char* const sv_ToneCurveFilter = R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
varying vec2 vTexcoord;
void main() {
    gl_Position = vec4(aPosition.xy, 0.0, 1.0);
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
}
)";

const char* const sf_ToneCurveFilter = QZ_FRAGMENT_PRECISION QZ_CURVE_LOOKUP R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
varying vec2 vTexcoord;
void main() {
    vec3 c = texture2D(aTexture0, vTexcoord).rgb;
    gl_FragColor = vec4(curveLookup(aTexture1, c, 0.0), 1.0);
}
)";

const char* const sf_screenexpand = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform float u_expand;
uniform float u_maxsize;
varying vec2 vTexcoord;
void main() {
    vec4 color1 = texture2D(aTexture0, vTexcoord);
    float lo = 0.5 - 0.5 / u_expand;
    float hi = 0.5 + 0.5 / u_expand;
    vec4 color2 = texture2D(aTexture0, vec2(lo) + vTexcoord * (hi - lo));
    gl_FragColor = color1 + color2 * (0.3 - u_expand / u_maxsize * 0.3);
}
)";

const char* const sf_cube16Filter = QZ_FRAGMENT_PRECISION QZ_CUBE_LOOKUP R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = cubeLookup(aTexture1, texture2D(aTexture0, vTexcoord), 16.0, 4.0, 64.0);
}
)";

const char* const sf_cube64Filter = QZ_FRAGMENT_PRECISION QZ_CUBE_LOOKUP R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = cubeLookup(aTexture1, texture2D(aTexture0, vTexcoord), 64.0, 8.0, 512.0);
}
)";

const char* const sf_nashvilleFilter = QZ_FRAGMENT_PRECISION QZ_THREE_ROW_LOOKUP R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
varying vec2 vTexcoord;
void main() {
    gl_FragColor = vec4(threeRowLookup(aTexture1, texture2D(aTexture0, vTexcoord).rgb), 1.0);
}
)";

const char* const sf_valenciaFilter = QZ_FRAGMENT_PRECISION QZ_THREE_ROW_LOOKUP QZ_MAP_LOOKUP R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
uniform sampler2D aTexture2;
varying vec2 vTexcoord;
const mat3 saturateMatrix = mat3(1.1402, -0.0598, -0.061,
                                 -0.1174, 1.0826, -0.1186,
                                 -0.0228, -0.0228, 1.1772);
void main() {
    vec3 c = threeRowLookup(aTexture1, texture2D(aTexture0, vTexcoord).rgb);
    c = saturateMatrix * c;
    float luma = dot(c, vec3(0.3, 0.59, 0.11));
    gl_FragColor = vec4(mapLookup(aTexture2, luma, c), 1.0);
}
)";

const char* const sf_waldenFilter = QZ_FRAGMENT_PRECISION QZ_THREE_ROW_LOOKUP QZ_MAP_LOOKUP R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
uniform sampler2D aTexture2;
varying vec2 vTexcoord;
void main() {
    vec3 c = threeRowLookup(aTexture1, texture2D(aTexture0, vTexcoord).rgb);
    vec2 tc = 2.0 * vTexcoord - 1.0;
    gl_FragColor = vec4(mapLookup(aTexture2, dot(tc, tc), c), 1.0);
}
)";

const char* const sf_brannanFilter = QZ_FRAGMENT_PRECISION QZ_CURVE_LOOKUP R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
uniform sampler2D aTexture2;
uniform sampler2D aTexture3;
uniform sampler2D aTexture4;
uniform sampler2D aTexture5;
varying vec2 vTexcoord;
const mat3 saturateMatrix = mat3(1.105150, -0.044850, -0.046000,
                                 -0.088050, 1.061950, -0.089200,
                                 -0.017100, -0.017100, 1.132900);
void main() {
    vec3 c = curveLookup(aTexture1, texture2D(aTexture0, vTexcoord).rgb, 0.5);
    c = saturateMatrix * c;
    vec2 tc = 2.0 * vTexcoord - 1.0;
    float d = dot(tc, tc);
    vec3 sampled = curveLookup(aTexture2, c, 0.5);
    c = mix(sampled, c, smoothstep(0.0, 1.0, d));
    c = curveLookup(aTexture3, c, 0.5);
    float luma = dot(c, vec3(0.3, 0.59, 0.11));
    c = mix(texture2D(aTexture4, vec2(luma, 0.5)).rgb, c, 0.5);
    c = curveLookup(aTexture5, c, 0.5);
    gl_FragColor = vec4((c - 0.5) * 0.7 + 0.5, 1.0);
}
)";

const char* const sf_inkwellFilter = QZ_FRAGMENT_PRECISION R"(
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
varying vec2 vTexcoord;
void main() {
    float grey = dot(texture2D(aTexture0, vTexcoord).rgb, vec3(0.3, 0.6, 0.1));
    gl_FragColor = vec4(vec3(texture2D(aTexture1, vec2(grey, 0.16666)).r), 1.0);
}
)";

const char* const sf_inkwell02Filter =
    QZ_FRAGMENT_PRECISION QZ_DARK_CORNERS QZ_COLOR_BALANCE QZ_SELECTIVE_COLOR QZ_INK_SHARPEN R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    vec3 c = inkSharpen(aTexture0, vTexcoord);
    c = darkCorners(c, vTexcoord);
    c = inkCurve(c);
    c = selectiveColor(c, 0, vec4(-0.1, -0.1, -0.4, 0.0));
    c = pow(clamp(c, 0.0, 1.0), vec3(1.3));
    c = colorBalance(c, vec3(0.2, 0.1, 0.0), vec3(0.0), vec3(0.0), true);
    gl_FragColor = vec4((c - 0.5) * 0.85 + 0.5, 1.0);
}
)";

const char* const sf_inkwell03Filter =
    QZ_FRAGMENT_PRECISION QZ_DARK_CORNERS QZ_COLOR_BALANCE QZ_SELECTIVE_COLOR QZ_INK_SHARPEN R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    vec3 c = inkSharpen(aTexture0, vTexcoord);
    c = darkCorners(c, vTexcoord);
    c = inkCurve(c);
    c = colorBalance(c, vec3(0.3, 0.15, 0.0), vec3(0.1, 0.05, 0.0), vec3(0.0), false);
    c = pow(clamp(c, 0.0, 1.0), vec3(1.5));
    c = selectiveColor(c, 1, vec4(0.36, -0.33, -0.2, 0.0));
    gl_FragColor = vec4((c - 0.5) * 0.9 + 0.5, 1.0);
}
)";

const char* const sf_new3Filter = QZ_FRAGMENT_PRECISION QZ_DARK_CORNERS QZ_COLOR_BALANCE R"(
uniform sampler2D aTexture0;
varying vec2 vTexcoord;
void main() {
    vec3 c = darkCorners(texture2D(aTexture0, vTexcoord).rgb, vTexcoord);
    c = colorBalance(c, vec3(-0.09, 0.06, 0.05), vec3(0.0), vec3(-0.13, -0.07, 0.01), false);
    gl_FragColor = vec4(c, 1.0);
}
)";

// The run-time look: brightness and contrast curves per channel, then a hue
// turn, a saturation factor and a value curve, in whole degrees and bytes.
const char* const sf_filterMoon = R"(
precision mediump float;
uniform sampler2D aTexture0;
uniform sampler2D aTexture1;
uniform sampler2D aTexture2;
uniform sampler2D aTexture3;
uniform int isBrightness;
uniform int isContrast;
uniform int isHsv;
uniform float deltas;
uniform float deltah;
varying vec2 vTexcoord;
const float pix05 = 0.5 / 255.0;
float truncate(float x) { return x < 0.0 ? -floor(-x) : floor(x); }
vec3 tableLookup(sampler2D table, vec3 c) {
    return vec3(texture2D(table, vec2(c.r + pix05, 1.0)).r,
                texture2D(table, vec2(c.g + pix05, 1.0)).g,
                texture2D(table, vec2(c.b + pix05, 1.0)).b);
}
void main() {
    vec4 source = texture2D(aTexture0, vTexcoord);
    vec3 c = source.rgb;
    if (isBrightness == 1) c = tableLookup(aTexture1, c);
    if (isContrast == 1) c = tableLookup(aTexture3, c);
    if (isHsv == 1) {
        float mx = max(max(c.r, c.g), c.b);
        float mn = min(min(c.r, c.g), c.b);
        float delta = mx - mn;
        float h = 0.0;
        float s = 0.0;
        if (mx <= 0.0) {
            h = -1.0;
        } else if (delta > 0.0) {
            s = delta * 255.0 / mx;
            if (mx == c.r) h = truncate((c.g - c.b) * 60.0 / delta);
            else if (mx == c.g) h = truncate(120.0 + (c.b - c.r) * 60.0 / delta);
            else h = truncate(240.0 + (c.r - c.g) * 60.0 / delta);
            if (h < 0.0) h += 360.0;
        }
        h += deltah;
        if (h >= 360.0) h -= 360.0;
        else if (h < 0.0) h += 360.0;
        s = clamp(s * deltas, 0.0, 255.0);
        float v = texture2D(aTexture2, vec2(mx + pix05, 1.0)).r;
        if (s <= 0.0) {
            c = vec3(v);
        } else {
            float h1 = h / 60.0;
            float s1 = s / 255.0;
            float i = floor(h1);
            float f = h1 - i;
            float p = v * (1.0 - s1);
            float q = v * (1.0 - s1 * f);
            float t = v * (1.0 - s1 * (1.0 - f));
            if (i < 0.5) c = vec3(v, t, p);
            else if (i < 1.5) c = vec3(q, v, p);
            else if (i < 2.5) c = vec3(p, v, t);
            else if (i < 3.5) c = vec3(p, q, v);
            else if (i < 4.5) c = vec3(t, p, v);
            else c = vec3(v, p, q);
        }
    }
    gl_FragColor = vec4(c, source.a);
}
)";
