#include "node/filter/ZuFilterNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/filter/ZuGatherMaterial.h"
#include "node/filter/ZuRGBCurve.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>
#include <string>

namespace {

const int kEntries = ZuRGBCurve::kPlane;

// The built-in looks, as curve settings: each table is computed once from
// these numbers by the same routines the run-time settings use.
struct BuiltInLook {
    const char* name;
    bool brightness, contrast, hsv;
    float deltas;  // < 0: leave the material's value
    delta_rgb_contrast curves;
    int hsvCurve;  // delta of the value curve
};

delta_rgb_contrast brightnessCurve(int r, int g, int b, int all) {
    delta_rgb_contrast d;
    d.brightR = r;
    d.brightG = g;
    d.brightB = b;
    d.brightAll = all;
    d.brightPivot = 128;
    return d;
}

delta_rgb_contrast withContrast(delta_rgb_contrast d, int first, int second) {
    d.contrast[3].first = first;
    d.contrast[3].second = second;
    d.contrast[3].pivot = 128;
    return d;
}

const BuiltInLook& builtInLook(ZU_FILTER_GATHER_TYPE type) {
    // Moon: cool, lifted and half-desaturated. Softgreen: green lift, flat
    // contrast. Boxi: bright and punchy. Memory: faded grey. BlackWhite:
    // contrasty grey.
    static const BuiltInLook looks[] = {
        {"Moon", true, false, true, 0.7f, brightnessCurve(0, 8, 30, 20), 20},
        {"Softgreen", true, true, false, -1.0f, withContrast(brightnessCurve(0, 25, 0, 10), -12, 12), 0},
        {"Boxi", true, true, false, -1.0f, withContrast(brightnessCurve(0, 0, 0, 20), 25, -25), 0},
        {"Memory", false, false, true, -1.0f, delta_rgb_contrast(), 30},
        {"blackwhite", false, true, true, 0.0f, withContrast(delta_rgb_contrast(), 30, -30), 0},
    };
    const int index = type >= 0 && type <= ZU_FILTER_GATHER_BLACKWHITE ? type : 0;
    return looks[index];
}

} // namespace

ZuFilterNode::ZuFilterNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuFilterNode"); }

void ZuFilterNode::zuinit() {
    ZuFilter::zuinit();
    if (!material) {
        material = new ZuGatherMaterial(app);
        material->init();
    }
}

ZuFilterNode::~ZuFilterNode() { releaseOwned(); }

void ZuFilterNode::zudestroy() {
    ZuFilter::zudestroy();
    releaseOwned();
}

void ZuFilterNode::releaseOwned() {
    qzSafeRelease(brightnessTex);
    qzSafeRelease(contrastTex);
    qzSafeRelease(hsvTex);
    qzSafeRelease(material);
}

void ZuFilterNode::keep(ZuTexture*& slot, ZuTexture* texture) {
    if (!texture || slot == texture) return;
    texture->retain();
    qzSafeRelease(slot);
    slot = texture;
}

ZuTexture* ZuFilterNode::makeTable(const char* name, int format, const unsigned char* table) {
    ZuTexMgr* textures = texMgr();
    if (!textures) return nullptr;
    return textures->createNullTextureWithData(name, kEntries, 1, format, format,
                                               const_cast<unsigned char*>(table));
}

void ZuFilterNode::interleave(const unsigned char* planes, unsigned char* rgb) {
    for (int i = 0; i < kEntries; ++i)
        for (int c = 0; c < 3; ++c) rgb[i * 3 + c] = planes[c * kEntries + i];
}

void ZuFilterNode::setFilterType(ZU_FILTER_GATHER_TYPE type) {
    filterType = type;
    if (!material) return;
    const BuiltInLook& look = builtInLook(type);
    ZuTexMgr* textures = texMgr();
    if (!textures) return;
    // The built-in tables are the same for every node: shared by name.
    auto shared = [&](const char* suffix, int format, const unsigned char* table) {
        std::string name = std::string(look.name) + suffix;
        ZuTexture* texture = textures->getTexture(name.c_str(), false);
        return texture ? texture : makeTable(name.c_str(), format, table);
    };
    delta_rgb_contrast curves = look.curves;
    unsigned char planes[4 * kEntries];
    unsigned char rgb[3 * kEntries];
    if (look.brightness) {
        material->setIsBrightness(1);
        ZuRGBCurve::getCurve_brightness(planes, &curves);
        interleave(planes, rgb);
        keep(brightnessTex, shared("_brightness", GL_RGB, rgb));
    }
    if (look.contrast) {
        material->setIsContrast(1);
        ZuRGBCurve::getCurve_contrast(planes, &curves);
        interleave(planes, rgb);
        keep(contrastTex, shared("_contrast", GL_RGB, rgb));
    }
    if (look.hsv) {
        material->setIsHsv(1);
        ZuRGBCurve::get_single_curve_x(planes, 160, look.hsvCurve);
        keep(hsvTex, shared("_hsv", GL_LUMINANCE, planes));
        if (look.deltas >= 0.0f) {
            material->setDeltas(look.deltas);
            material->setDeltah(0.0f);
        }
    }
}

void ZuFilterNode::setFilter(float deltas, float deltah, char* brightness, char* contrast, char* hsv) {
    if (!material) return;
    material->setDeltas(deltas);
    material->setDeltah(deltah);
    const std::string uid = std::to_string(getuid());
    if (brightness) {
        material->setIsBrightness(1);
        keep(brightnessTex, makeTable((uid + "filter_brightness").c_str(), GL_RGB,
                                      reinterpret_cast<unsigned char*>(brightness)));
    }
    if (contrast) {
        material->setIsContrast(1);
        keep(contrastTex, makeTable((uid + "filter_contrast").c_str(), GL_RGB,
                                    reinterpret_cast<unsigned char*>(contrast)));
    }
    if (hsv) {
        material->setIsHsv(1);
        keep(hsvTex, makeTable((uid + "filter_hsv").c_str(), GL_LUMINANCE, reinterpret_cast<unsigned char*>(hsv)));
    }
}

void ZuFilterNode::setParameter(adjust_parameter parameter) {
    if (!material) return;
    const std::string uid = std::to_string(getuid());
    unsigned char planes[4 * kEntries];
    unsigned char rgb[3 * kEntries];
    if (parameter.delta.useBrightness) {
        material->setIsBrightness(1);
        ZuRGBCurve::getCurve_brightness(planes, &parameter.delta);
        interleave(planes, rgb);
        keep(brightnessTex, makeTable((uid + "filter_brightness").c_str(), GL_RGB, rgb));
    }
    if (parameter.delta.useContrast) {
        material->setIsContrast(1);
        // Deltas that pull the same way leave the planes computed so far.
        ZuRGBCurve::getCurve_contrast(planes, &parameter.delta);
        interleave(planes, rgb);
        keep(contrastTex, makeTable((uid + "filter_contrast").c_str(), GL_RGB, rgb));
    }
    if (parameter.useHsv) {
        material->setIsHsv(1);
        // Without a value curve the value stays as it is (an identity table),
        // rather than sampling an empty slot as black.
        ZuRGBCurve::get_single_curve_x(planes, 160, parameter.hsvCurve);
        keep(hsvTex, makeTable((uid + "filter_hsv").c_str(), GL_LUMINANCE, planes));
        if (parameter.deltas != 0.0f) material->setDeltas(parameter.deltas);
        if (parameter.deltah != 0) material->setDeltah(static_cast<float>(parameter.deltah));
    }
}

void ZuFilterNode::update(float dt) {
    ZuFilter::update(dt);
    if (!getRenderObject() || !material) return;
    if (brightnessTex) material->setTexture1(brightnessTex);
    if (hsvTex) material->setTexture2(hsvTex);
    if (contrastTex) material->setTexture3(contrastTex);
    bindPicture(material);
}

void ZuFilterNode::render() {
    if (!isVisible()) return;
    if (!material) return;
    pushPass(RS_FILTER, "FilterGather swap", "FilterGather render");
}
