#pragma once

#include "node/filter/ZUBEAUFILTERTYPE.h"
#include "node/filter/ZuFilter.h"

class ZuBeauFilterMaterial;
class ZuTexture;

// One named colour look over the whole picture. Its images load on the load
// thread; until every one of them has arrived the node records nothing, so
// the picture stays as it is rather than blanking.
class ZuBeauFilterNode : public ZuFilter {
public:
    static constexpr int kImages = 5;

    explicit ZuBeauFilterNode(ZuAppMain* app);
    ~ZuBeauFilterNode() override;

    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    void setFilterType(ZUBEAUFILTERTYPE type);
    ZUBEAUFILTERTYPE getFilterType() const { return filterType; }
    bool hasLook() const { return material != nullptr; }

    void setFilterTex01(ZuTexture* texture) { setFilterTex(0, texture); }
    void setFilterTex02(ZuTexture* texture) { setFilterTex(1, texture); }
    void setFilterTex03(ZuTexture* texture) { setFilterTex(2, texture); }
    void setFilterTex04(ZuTexture* texture) { setFilterTex(3, texture); }
    void setFilterTex05(ZuTexture* texture) { setFilterTex(4, texture); }
    ZuTexture* getFilterTex(int index) const { return index >= 0 && index < kImages ? filterTex[index] : nullptr; }

private:
    void loadFilter();
    void setFilterTex(int index, ZuTexture* texture);
    bool imagesLoaded() const;
    void releaseLook();

    ZuTexture* filterTex[kImages] = {};
    ZUBEAUFILTERTYPE filterType = ZUBEAUFILTER_ORIGIN;
    ZuBeauFilterMaterial* material = nullptr;
};
