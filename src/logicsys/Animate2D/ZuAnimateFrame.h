#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "logicsys/Animate2D/ZuAnimate.h"

// A flip-book: the paths of its images in play order, and the atlas pages
// its frames are cut from, held until the animation is destroyed.
class ZuAnimateFrame : public ZuAnimate {
public:
    explicit ZuAnimateFrame(ZuAppMain* app) : ZuAnimate(app) {}
    ~ZuAnimateFrame() override;

    void destroy() override;

    void pushTexName(const char* path);
    // Retains the page; null is skipped.
    void addTexturePList(ZuTexture* page);
    const qz::array<qz::string>& getTexNameArray() const { return texNames; }
    uint32_t getTexturePListCount() const { return plists.size(); }
    // True once every atlas page has been uploaded or at least read.
    bool getBeLoadFinish();

private:
    void releasePages();

    qz::array<qz::string> texNames;
    qz::array<ZuTexture*> plists;
};
