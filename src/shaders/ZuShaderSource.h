#pragma once

// The engine's GLSL, compiled into the library. sv_ names are vertex
// sources, sf_ names fragment sources; cfgShader pairs them under program
// keys. All text is GLSL ES 1.00, which ES 2 and ES 3 contexts both accept.
//
// Attribute names and their locations are fixed for every program (see
// ZuShaderMgr); the shared uniforms (aMatrixM, aMatrixVP, texcoordClip,
// aTexture0..) mean the same thing in every source.

// Full-screen passes: camera conversion, copies, output packing.
extern const char* const sv_screennor;
extern const char* const sf_screennor;
extern const char* const sf_rgba;
extern const char* const sf_bgra;
extern const char* const sf_defaultBlack;
extern const char* const sf_yuv2rgb;
extern const char* const sf_yuv2rgb12;
extern const char* const sf_yuv2rgb21;
extern const char* const sf_screennorseparation;
extern const char* const sf_screennorseparationedge;
extern const char* const sv_rgb2yuv;
extern const char* const sf_rgb2yuvnv12;
extern const char* const sf_rgb2yuvnv21;
extern const char* const sf_rgb2yuvyv12;
extern const char* const sf_rgb2yuvi420;

// Plain drawing through the matrices: textured, tinted, flat, picking.
extern const char* const sv_NormalV2CT1;
extern const char* const sf_NormalV2CT1;
extern const char* const sv_normal2d;
extern const char* const sf_normal;
extern const char* const sv_normal3d;
extern const char* const sf_normal3d;
extern const char* const sv_normalv2;
extern const char* const sf_normalcolor;
extern const char* const sv_geometry;
extern const char* const sf_geometry;
extern const char* const sv_geometry3d;
extern const char* const sf_geometry3d;
extern const char* const sv_colorselect;
extern const char* const sf_colorselect;
extern const char* const sv_colorselect3d;
extern const char* const sv_colorselectspine;
extern const char* const sf_colorselectspine;
extern const char* const sv_blend2d;
extern const char* const sv_blend3d;
extern const char* const sf_blend;
extern const char* const sv_realcamera;
extern const char* const sf_realcamera;
extern const char* const sv_debugFacePt;
extern const char* const sf_debugFacePt;
extern const char* const sv_screencolor;
extern const char* const sf_screencolor;
extern const char* const sv_texAni;
extern const char* const sf_texAni;
extern const char* const sv_animateFrame;
extern const char* const sf_animateFrame;

// Colour passes over the scene picture: tone curves, named looks, run-time curves.
extern const char* const sv_ToneCurveFilter;
extern const char* const sf_ToneCurveFilter;
extern const char* const sf_screenexpand;
extern const char* const sf_cube16Filter;
extern const char* const sf_cube64Filter;
extern const char* const sf_nashvilleFilter;
extern const char* const sf_valenciaFilter;
extern const char* const sf_waldenFilter;
extern const char* const sf_brannanFilter;
extern const char* const sf_inkwellFilter;
extern const char* const sf_inkwell02Filter;
extern const char* const sf_inkwell03Filter;
extern const char* const sf_new3Filter;
extern const char* const sf_filterMoon;

// Skin smoothing and whitening, the skin-tone soften and the face warp.
extern const char* const sv_faceBuffingWhiteEs30;
extern const char* const sf_faceBuffingWhiteLow;
extern const char* const sf_faceBuffingWhite;
extern const char* const sf_faceBuffingWhiteHigh;
extern const char* const sf_faceBuffingWhiteEs30Low;
extern const char* const sf_faceBuffingWhiteEs30;
extern const char* const sf_faceBuffingWhiteEs30High;
extern const char* const sf_faceBeautify;
extern const char* const sf_faceBeautifyCurve;
extern const char* const sv_faceBeautifyEs30;
extern const char* const sf_faceBeautifyEs30;
extern const char* const sv_faceBeautyOutline;

// Style passes: sketch, channel shake, background keying, pencil drawing,
// the screen effects, and the textured sky dome.
extern const char* const sf_filterSketch;
extern const char* const sf_effectShake;
extern const char* const sv_filterShake;
extern const char* const sf_alphaMatting;
extern const char* const sf_filterPencilDrawing;
extern const char* const sf_screen7color;
extern const char* const sf_screencut4;
extern const char* const sv_SkyDome;
extern const char* const sf_SkyDome;
// Face masks, swaps and real-face overlays.
extern const char* const sv_drawface2d;
extern const char* const sf_drawface2d;
extern const char* const sv_drawfaceBlend;
extern const char* const sf_drawfaceBlend;
extern const char* const sv_3dFaceReal;
extern const char* const sf_3dFaceReal;

// Small-face warps.
extern const char* const sv_smallFace;
extern const char* const sf_smallFace;
extern const char* const sf_smallShrinkFace;
extern const char* const sf_shortFace;
extern const char* const sf_smallShortShrink;
extern const char* const sf_kejiSmallShortFace;
extern const char* const sf_pigFace;
// Lenses over one landmark: round and oval.
extern const char* const sf_filterEnlargeEye;
extern const char* const sf_filterEnlargeEllipse;
// Skeletal stickers: page texture times vertex colour, with a screen mask;
// head pictures on bones, masked and framed.
extern const char* const sv_animateSpine;
extern const char* const sf_animateSpine;
extern const char* const sf_spineMask;
extern const char* const sv_texHead;
extern const char* const sf_texHead;
// Characters: skinned and morphed, lit (ZuShaderModel.cpp).
extern const char* const sv_skinMorphAnimation2;
extern const char* const sv_skinMorphAnimation;
extern const char* const sf_litModel;
