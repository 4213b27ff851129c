// The "add a node type" recipe of docs/architecture.md, followed once: a node
// that covers the scene with one colour in the overlay stream, written from
// the steps alone, registered by name, created through the node creator and
// checked on the pixels. If the recipe goes stale, this stops compiling or
// passing.
#include "node/filter/FilterFixture.h"

#include <GLES2/gl2.h>

namespace {

using namespace filtertest;

// Step 1: one class, deriving from ZuNode.
class OneColourNode : public ZuNode {
public:
    explicit OneColourNode(ZuAppMain* app) : ZuNode(app) {}

    // Step 2: zuinit builds the material and the render object...
    void zuinit() override {
        uint8_t teal[4] = {0, 128, 128, 255};
        texture = new ZuTexture2D(app);
        texture->zuinit();
        texture->setwidth(1);
        texture->setheight(1);
        texture->setinformate(GL_RGBA);
        texture->setdataformate(GL_RGBA);
        texture->setData(teal, 0, false);
        texture->apply();
        texture->setbLoad(true);
        material = new ZuMaterial(app, "screennor");
        material->setTexture0(texture);
        material->setBlendEnable(false);
        object = new ZuRenderObject(app);
    }
    // ...update sets the mesh and material...
    void update(float delta) override {
        ZuNode::update(delta);
        object->setMesh(app->getGlobalMgr()->getRenderMgr()->getRenderData()->meshFull);
        object->setMaterial(material);
    }
    // ...render records into a stream unless hidden...
    void render() override {
        if (!isVisible()) return;
        ZuScene* scene = app->getGlobalParam()->activeScene;
        object->pushCmd(scene ? scene->getRenderScene() : nullptr, RS_OVERLAY, "onecolour");
    }
    // ...and zudestroy releases what zuinit made.
    void zudestroy() override {
        qzSafeRelease(material);
        qzSafeRelease(object);
        if (texture) texture->zudestroy();
        qzSafeRelease(texture);
        ZuNode::zudestroy();
    }

private:
    ZuTexture* texture = nullptr;
    ZuMaterial* material = nullptr;
    ZuRenderObject* object = nullptr;
};

using NodeRecipe = FilterFixture<GLTest>;

TEST_F(NodeRecipe, ANodeWrittenFromTheRecipeDrawsAndHides) {
    // Step 3: registered by name (a test registers on its own creator).
    ASSERT_TRUE(nodes->getCreator()->registCreateFunc("OneColourNode", zuCreateNodeOfType<OneColourNode>));
    // Step 4: created through the creator, ticked, read back.
    auto* node = addNode<OneColourNode>("OneColourNode", "teal");
    ASSERT_NE(node, nullptr);
    frame();
    Bytes covered = picture();
    for (size_t i = 0; i < covered.size(); i += 4) {
        ASSERT_EQ(covered[i], 0);
        ASSERT_EQ(covered[i + 1], 128);
        ASSERT_EQ(covered[i + 2], 128);
    }
    node->setVisible(false);
    frame();
    EXPECT_EQ(picture(), base);
}

} // namespace
