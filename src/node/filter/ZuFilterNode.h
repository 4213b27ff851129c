#pragma once

#include "node/filter/ZU_FILTER_GATHER_TYPE.h"
#include "node/filter/ZuFilter.h"
#include "node/filter/adjust_parameter.h"

class ZuGatherMaterial;
class ZuTexture;

// A colour look built from numbers at run time: brightness and contrast
// curves per channel and a hue, saturation and value shift, each turned into
// a 256-entry table that the pass samples. GL thread: the tables become
// textures at once.
class ZuFilterNode : public ZuFilter {
public:
    explicit ZuFilterNode(ZuAppMain* app);
    ~ZuFilterNode() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    void setFilterType(ZU_FILTER_GATHER_TYPE type);
    ZU_FILTER_GATHER_TYPE getFilterType() const { return filterType; }
    // Tables as given (256 RGB triples for brightness and contrast, 256
    // values for hsv); a null table leaves its step as it is.
    void setFilter(float deltas, float deltah, char* brightness, char* contrast, char* hsv);
    void setParameter(adjust_parameter parameter);

    ZuGatherMaterial* getMaterial() const { return material; }
    ZuTexture* getBrightnessTex() const { return brightnessTex; }
    ZuTexture* getContrastTex() const { return contrastTex; }
    ZuTexture* getHsvTex() const { return hsvTex; }

private:
    void releaseOwned();
    // A 256 x 1 table texture named after this node; null when the name is taken.
    ZuTexture* makeTable(const char* suffix, int format, const unsigned char* table);
    void keep(ZuTexture*& slot, ZuTexture* texture);
    // RGB triples from the R, G, B planes of a curve.
    static void interleave(const unsigned char* planes, unsigned char* rgb);

    ZU_FILTER_GATHER_TYPE filterType = ZU_FILTER_GATHER_MOON;
    ZuGatherMaterial* material = nullptr;
    ZuTexture* brightnessTex = nullptr;
    ZuTexture* contrastTex = nullptr;
    ZuTexture* hsvTex = nullptr;
};
