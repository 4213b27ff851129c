// Small-face warps: a chain of local pushes along contour point pairs, in the
// fragment stage of a full-screen pass over the picture so far. Everything is
// in texture coordinates; aspectRatio (height over width) makes the pushes
// round on screen. Pixels outside the bounds skip the chain.
#include "shaders/ZuShaderSource.h"

#define QZ_WARP_HEAD                                                                          \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\nprecision mediump float;\n#endif\n" \
    "uniform sampler2D aTexture0;\n"                                                          \
    "varying vec2 vTexcoord;\n"                                                               \
    "uniform float radius;\n"                                                                 \
    "uniform float aspectRatio;\n"                                                            \
    "uniform int arraySize;\n"                                                                \
    "uniform int isSmall;\n"                                                                  \
    "uniform vec2 leftContourPoints[9];\n"                                                    \
    "uniform vec2 rightContourPoints[9];\n"                                                   \
    "uniform vec2 topContourPoints[9];\n"                                                     \
    "uniform vec2 bottomContourPoints[9];\n"                                                  \
    "uniform float deltaArray[9];\n"                                                          \
    "uniform float deltaShortArray[9];\n"                                                     \
    "uniform float minX, maxX, minY, maxY;\n"                                                 \
    "uniform float minShortX, maxShortX, minShortY, maxShortY;\n"                             \
    "vec2 warpPositionToUse(vec2 p, vec2 a, vec2 b, float r0, float delta, int small) {\n"    \
    "    vec2 pr = vec2(p.x, p.y * aspectRatio + 0.5 - 0.5 * aspectRatio);\n"                 \
    "    vec2 ar = vec2(a.x, a.y * aspectRatio + 0.5 - 0.5 * aspectRatio);\n"                 \
    "    float r = distance(pr, ar);\n"                                                       \
    "    if (r >= r0) return p;\n"                                                            \
    "    vec2 dir = normalize(b - a);\n"                                                      \
    "    if (small == 0) dir = -dir;\n"                                                       \
    "    float dist = r0 * r0 - r * r;\n"                                                     \
    "    float alpha = dist / (dist + (r - delta) * (r - delta));\n"                          \
    "    alpha = alpha * alpha;\n"                                                            \
    "    return p - alpha * delta * dir;\n"                                                   \
    "}\n"                                                                                     \
    "bool insideSides(vec2 p) { return p.x > minX && p.x < maxX && p.y > minY && p.y < maxY; }\n" \
    "bool insideShort(vec2 p) {\n"                                                            \
    "    return p.x > minShortX && p.x < maxShortX && p.y > minShortY && p.y < maxShortY;\n"  \
    "}\n"                                                                                     \
    "vec2 sidePair(vec2 p, int i, float r0, float delta, int small) {\n"                      \
    "    p = warpPositionToUse(p, rightContourPoints[i], leftContourPoints[i], r0, delta, small);\n" \
    "    return warpPositionToUse(p, leftContourPoints[i], rightContourPoints[i], r0, delta, small);\n" \
    "}\n"

const char* const sv_smallFace = R"(
attribute vec4 aPosition;
attribute vec2 aTexcoord0;
uniform vec2 texcoordClip;
varying vec2 vTexcoord;
void main() {
    gl_Position = aPosition;
    vTexcoord = (aTexcoord0 - 0.5) * texcoordClip + 0.5;
}
)";

const char* const sf_smallFace = QZ_WARP_HEAD R"(
void main() {
    vec2 p = vTexcoord;
    if (insideSides(vTexcoord)) {
        for (int i = 0; i < 8; ++i) {
            if (i >= arraySize) break;
            p = sidePair(p, i, radius, deltaArray[i], isSmall);
        }
    }
    gl_FragColor = texture2D(aTexture0, p);
}
)";

const char* const sf_smallShrinkFace = QZ_WARP_HEAD R"(
void main() {
    vec2 p = vTexcoord;
    if (insideSides(vTexcoord)) {
        for (int i = 0; i < 8; ++i) p = sidePair(p, i, radius, deltaArray[i], isSmall);
    }
    gl_FragColor = texture2D(aTexture0, p);
}
)";

// Six side pairs with a smaller radius, then vertical pairs from the brow
// line towards the mouth.
#define QZ_WARP_SHORT(PAIRS)                                                                    \
    "void main() {\n"                                                                           \
    "    vec2 p = vTexcoord;\n"                                                                 \
    "    if (insideSides(vTexcoord)) {\n"                                                       \
    "        for (int i = 0; i < 6; ++i) p = sidePair(p, i, radius / 1.5, deltaArray[i], isSmall);\n" \
    "    }\n"                                                                                   \
    "    if (insideShort(vTexcoord)) {\n"                                                       \
    "        for (int i = 0; i < " PAIRS "; ++i)\n"                                                \
    "            p = warpPositionToUse(p, topContourPoints[i], bottomContourPoints[i], radius, deltaShortArray[i], isSmall);\n" \
    "    }\n"                                                                                   \
    "    gl_FragColor = texture2D(aTexture0, p);\n"                                             \
    "}\n"

const char* const sf_shortFace = QZ_WARP_HEAD QZ_WARP_SHORT("9");
const char* const sf_smallShortShrink = QZ_WARP_HEAD QZ_WARP_SHORT("9");
const char* const sf_kejiSmallShortFace = QZ_WARP_HEAD QZ_WARP_SHORT("5");

// Pairs 0 and 1 follow the node's direction; pair 2 always pulls in, once
// wide and once narrow; the vertical pairs always pull towards the mouth.
const char* const sf_pigFace = QZ_WARP_HEAD R"(
void main() {
    vec2 p = vTexcoord;
    if (insideSides(vTexcoord)) {
        p = sidePair(p, 0, radius, deltaArray[0], isSmall);
        p = sidePair(p, 1, radius, deltaArray[1], isSmall);
        p = sidePair(p, 2, radius, deltaArray[2], 1);
        p = sidePair(p, 2, radius * 0.1, deltaArray[2], 1);
    }
    if (insideShort(vTexcoord)) {
        for (int i = 0; i < 5; ++i)
            p = warpPositionToUse(p, topContourPoints[i], bottomContourPoints[i], radius, deltaShortArray[i], 1);
    }
    gl_FragColor = texture2D(aTexture0, p);
}
)";
