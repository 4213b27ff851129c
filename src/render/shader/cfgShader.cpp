#include "render/shader/cfgShader.h"

#include "shaders/ZuShaderSource.h"

namespace {

struct Row {
    const char* key;
    const char* vs;
    const char* fs;
};

// Keys share sources only as listed here.
const Row kRows[] = {
    // Camera conversion and full-screen copies.
    {"screennor", sv_screennor, sf_screennor},
    {"rgba", sv_screennor, sf_rgba},
    {"bgra", sv_screennor, sf_bgra},
    {"screennorbgra", sv_screennor, sf_bgra},
    {"yuv2rgb", sv_screennor, sf_yuv2rgb},
    {"yuv2rgb12", sv_screennor, sf_yuv2rgb12},
    {"yuv2rgb21", sv_screennor, sf_yuv2rgb21},
    {"defaultBlack", sv_screennor, sf_defaultBlack},
    {"screennorseparation", sv_screennor, sf_screennorseparation},
    {"screennorseparationedge", sv_screennor, sf_screennorseparationedge},
    // Output packing.
    {"rgb2yuvnv12", sv_rgb2yuv, sf_rgb2yuvnv12},
    {"rgb2yuvnv21", sv_rgb2yuv, sf_rgb2yuvnv21},
    {"rgb2yuvyv12", sv_rgb2yuv, sf_rgb2yuvyv12},
    {"rgb2yuvi420", sv_rgb2yuv, sf_rgb2yuvi420},
    // Drawing through the matrices.
    {"NormalV2CT1", sv_NormalV2CT1, sf_NormalV2CT1},
    {"normal2d", sv_normal2d, sf_normal},
    {"normal3d", sv_normal3d, sf_normal3d},
    {"normalv2", sv_normalv2, sf_normalcolor},
    {"geometry", sv_geometry, sf_geometry},
    {"geometry3d", sv_geometry3d, sf_geometry3d},
    {"colorselect", sv_colorselect, sf_colorselect},
    {"colorselect3d", sv_colorselect3d, sf_colorselect},
    {"colorselect2dspine", sv_colorselectspine, sf_colorselectspine},
    {"blend2d", sv_blend2d, sf_blend},
    {"blend3d", sv_blend3d, sf_blend},
    {"realcamera", sv_realcamera, sf_realcamera},
    {"debugFacePt", sv_debugFacePt, sf_debugFacePt},
    {"screencolor", sv_screencolor, sf_screencolor},
    {"texAni", sv_texAni, sf_texAni},
    {"animateFrame", sv_animateFrame, sf_animateFrame},
    // Colour passes: the picture so far in aTexture0, tables in the other slots.
    {"ToneCurveFilter", sv_ToneCurveFilter, sf_ToneCurveFilter},
    {"screenexpand", sv_screennor, sf_screenexpand},
    {"filterMoon", sv_screennor, sf_filterMoon},
    {"originFilter", sv_screennor, sf_cube16Filter},
    {"pinkFilter", sv_screennor, sf_cube16Filter},
    {"guassFilter", sv_screennor, sf_cube16Filter},
    {"beachFilter", sv_screennor, sf_cube16Filter},
    {"sweetyFilter", sv_screennor, sf_cube16Filter},
    {"originFilter02", sv_screennor, sf_cube64Filter},
    {"pink01Filter", sv_screennor, sf_cube64Filter},
    {"grassFilter", sv_screennor, sf_cube64Filter},
    {"beach01Filter", sv_screennor, sf_cube64Filter},
    {"sweety02Filter", sv_screennor, sf_cube64Filter},
    {"nashvilleFilter", sv_screennor, sf_nashvilleFilter},
    {"valenciaFilter", sv_screennor, sf_valenciaFilter},
    {"waldenFilter", sv_screennor, sf_waldenFilter},
    {"brannanFilter", sv_screennor, sf_brannanFilter},
    {"inkwellFilter", sv_screennor, sf_inkwellFilter},
    {"inkwell02Filter", sv_screennor, sf_inkwell02Filter},
    {"inkwell03Filter", sv_screennor, sf_inkwell03Filter},
    {"new3Filter", sv_screennor, sf_new3Filter},
    // Beauty: skin smoothing and whitening by quality, the soften and the face warp.
    {"faceBeautify", sv_screennor, sf_faceBeautify},
    {"faceBeautifyCurve", sv_screennor, sf_faceBeautifyCurve},
    {"faceBeautify_es30", sv_faceBeautifyEs30, sf_faceBeautifyEs30},
    {"faceBuffingWhiteLow", sv_screennor, sf_faceBuffingWhiteLow},
    {"faceBuffingWhite", sv_screennor, sf_faceBuffingWhite},
    {"faceBuffingWhiteHigh", sv_screennor, sf_faceBuffingWhiteHigh},
    {"faceBuffingWhite_es30Low", sv_faceBuffingWhiteEs30, sf_faceBuffingWhiteEs30Low},
    {"faceBuffingWhite_es30", sv_faceBuffingWhiteEs30, sf_faceBuffingWhiteEs30},
    {"faceBuffingWhite_es30High", sv_faceBuffingWhiteEs30, sf_faceBuffingWhiteEs30High},
    {"faceBeautyOutline", sv_faceBeautyOutline, sf_screennor}, // the warp is all in the vertex stage
    // Style passes and the sky dome.
    {"filterSketch", sv_screennor, sf_filterSketch},
    {"effectShake", sv_screennor, sf_effectShake},
    {"filterShake", sv_filterShake, sf_screennor},
    {"alphaMatting", sv_screennor, sf_alphaMatting},
    {"filterPencilDrawing", sv_screennor, sf_filterPencilDrawing},
    {"screen7color", sv_screennor, sf_screen7color},
    {"screencut4", sv_screennor, sf_screencut4},
    {"SkyDome", sv_SkyDome, sf_SkyDome},
    // Face masks, swaps and real-face overlays: pictures on the face triangles.
    {"drawface2d", sv_drawface2d, sf_drawface2d},
    {"drawfaceBlend", sv_drawfaceBlend, sf_drawfaceBlend},
    {"3dFaceReal", sv_3dFaceReal, sf_3dFaceReal},
    // Small-face warps: pushes along contour pairs in the fragment stage.
    {"smallFace", sv_smallFace, sf_smallFace},
    {"smallShrinkFace", sv_smallFace, sf_smallShrinkFace},
    {"shortFace", sv_smallFace, sf_shortFace},
    {"smallShortShrink", sv_smallFace, sf_smallShortShrink},
    {"kejiSmallShortFace", sv_smallFace, sf_kejiSmallShortFace},
    {"pigFace", sv_smallFace, sf_pigFace},
    // Lenses: full-screen passes over the picture.
    {"filterEnlargeEye", sv_screennor, sf_filterEnlargeEye},
    {"filterEnlargeEllipse", sv_screennor, sf_filterEnlargeEllipse},
    // Skeletal stickers and head pictures.
    {"animateSpine", sv_animateSpine, sf_animateSpine},
    {"spineMask", sv_animateSpine, sf_spineMask},
    {"texHead", sv_texHead, sf_texHead},
    // Characters.
    {"skin_morph_animation2", sv_skinMorphAnimation2, sf_litModel},
    {"skin_morph_animation", sv_skinMorphAnimation, sf_litModel},
};

qz::map<qz::string, cfgShader::Sources>* buildTable() {
    auto* table = new qz::map<qz::string, cfgShader::Sources>();
    for (const Row& row : kRows) {
        cfgShader::Sources sources;
        sources.vs = row.vs;
        sources.fs = row.fs;
        table->insert(qz::string(row.key), sources);
    }
    return table;
}

} // namespace

const qz::map<qz::string, cfgShader::Sources>& cfgShader::table() {
    // Never freed: shared by every engine of the process and immutable.
    static const qz::map<qz::string, Sources>* table = buildTable();
    return *table;
}

const cfgShader::Sources* cfgShader::find(const char* key) {
    if (!key) return nullptr;
    auto* node = table().find(qz::string(key));
    return node ? &node->getValue() : nullptr;
}
