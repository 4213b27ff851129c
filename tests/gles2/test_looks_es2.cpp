// The named looks on a true ES 2.0 context, each made by the filter-creating
// operation and given its look: every program links in GLSL ES 1.00 and
// every look changes the chart.
#include "node/filter/FilterFixture.h"
#include "node/filter/ZuBeauFilterNode.h"
#include "node/filter/ZuBeauFilterTable.h"
#include "operate/ZuOperateCreateFilter.h"
#include "render/texture/ZuTexture.h"

namespace {

using namespace filtertest;

class LooksEs2Test : public FilterFixture<GLES2Test> {
protected:
    void SetUp() override {
        PainterNode::useChart() = true;
        FilterFixture<GLES2Test>::SetUp();
    }
    void TearDown() override {
        FilterFixture<GLES2Test>::TearDown();
        PainterNode::useChart() = false;
    }
};

} // namespace

TEST_F(LooksEs2Test, EveryLookMadeByTheOperationDrawsOnEs2) {
    for (int type = 0; type < ZUBEAUFILTER_COUNT; ++type) {
        const ZuBeauFilterTable::Look* look = ZuBeauFilterTable::lookOf(type);
        const std::string name = std::string("es2_") + look->subType;
        push(new ZuOperateCreateFilter(app, name.c_str(), "ZuBeauFilterNode", "s"));
        frame();
        auto* node = dynamic_cast<ZuBeauFilterNode*>(nodes->getNode(name.c_str()));
        ASSERT_NE(node, nullptr) << look->subType;
        node->setFilterType(static_cast<ZUBEAUFILTERTYPE>(type));
        ASSERT_TRUE(waitFor([&] {
            for (int i = 0; i < ZuBeauFilterNode::kImages; ++i)
                if (node->getFilterTex(i) && !node->getFilterTex(i)->getbLoad()) return false;
            return true;
        })) << look->subType;
        frame();
        Bytes graded = picture();
        EXPECT_GE(maxDifference(graded, base), 3) << look->subType << " on ES 2";
        node->removeFromParent();
        frame();
    }
}
