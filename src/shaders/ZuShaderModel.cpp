// Characters: skinned by up to four bones a vertex, with morph offsets added
// to the bind-pose position first, lit by four directional lights and an
// ambient term. 30 bone matrices fill the 128 vertex uniform vectors that
// every GL ES 2 implementation has, with room for the view-projection.
#include "shaders/ZuShaderSource.h"

#define QZ_MODEL_PRECISION \
    "#ifdef GL_FRAGMENT_PRECISION_HIGH\nprecision highp float;\n#else\nprecision mediump float;\n#endif\n"

#define QZ_SKIN_HEAD \
    "uniform mat4 aMatrixVP;\n" \
    "uniform mat4 gBones[30];\n" \
    "attribute vec4 aPosition;\n" \
    "attribute vec3 aNormal;\n" \
    "attribute vec2 aTexcoord0;\n" \
    "attribute vec4 aBoneID;\n" \
    "attribute vec4 aBoneWeight;\n" \
    "varying vec2 vTexcoord;\n" \
    "varying vec3 vNormal;\n" \
    "mat4 skinMatrix() {\n" \
    "    return gBones[int(aBoneID.x)] * aBoneWeight.x + gBones[int(aBoneID.y)] * aBoneWeight.y +\n" \
    "           gBones[int(aBoneID.z)] * aBoneWeight.z + gBones[int(aBoneID.w)] * aBoneWeight.w;\n" \
    "}\n" \
    "void skinOut(vec3 position) {\n" \
    "    mat4 skin = skinMatrix();\n" \
    "    gl_Position = aMatrixVP * (skin * vec4(position, 1.0));\n" \
    "    vNormal = (skin * vec4(aNormal, 0.0)).xyz;\n" \
    "    vTexcoord = aTexcoord0;\n" \
    "}\n"

// The processor sums the blend shapes into one offset a vertex.
const char* const sv_skinMorphAnimation2 = QZ_SKIN_HEAD R"(
attribute vec3 aMorphT1;
void main() {
    skinOut(aPosition.xyz + aMorphT1);
}
)";

// Four morph targets weighted in the shader.
const char* const sv_skinMorphAnimation = QZ_SKIN_HEAD R"(
attribute vec3 aMorphT1;
attribute vec3 aMorphT2;
attribute vec3 aMorphT3;
attribute vec3 aMorphT4;
uniform float aWeight1;
uniform float aWeight2;
uniform float aWeight3;
uniform float aWeight4;
void main() {
    skinOut(aPosition.xyz + aMorphT1 * aWeight1 + aMorphT2 * aWeight2 + aMorphT3 * aWeight3 +
            aMorphT4 * aWeight4);
}
)";

const char* const sf_litModel = QZ_MODEL_PRECISION R"(
uniform sampler2D aTexture0;
uniform vec3 uLightDir;
uniform vec3 uLightColor;
uniform vec3 uMatDiffuse;
uniform vec3 uLightDir1;
uniform vec3 uLightColor1;
uniform vec3 uMatDiffuse1;
uniform vec3 uLightDir2;
uniform vec3 uLightColor2;
uniform vec3 uMatDiffuse2;
uniform vec3 uLightDir3;
uniform vec3 uLightColor3;
uniform vec3 uMatDiffuse3;
uniform vec3 uAmbientLightColor;
uniform vec3 uAmbientLightStrength;
varying vec2 vTexcoord;
varying vec3 vNormal;
vec3 lit(vec3 n, vec3 dir, vec3 color, vec3 diffuse) {
    return max(dot(n, normalize(dir)), 0.0) * color * diffuse;
}
void main() {
    vec3 n = normalize(vNormal);
    vec3 light = uAmbientLightColor * uAmbientLightStrength;
    light += lit(n, uLightDir, uLightColor, uMatDiffuse);
    light += lit(n, uLightDir1, uLightColor1, uMatDiffuse1);
    light += lit(n, uLightDir2, uLightColor2, uMatDiffuse2);
    light += lit(n, uLightDir3, uLightColor3, uMatDiffuse3);
    vec4 base = texture2D(aTexture0, vTexcoord);
    gl_FragColor = vec4(base.rgb * light, base.a);
}
)";
