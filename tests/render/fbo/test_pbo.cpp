#include "render/fbo/ZuPboMgr.h"
#include "render/fbo/ZuPboObject.h"
#include "support/GLTest.h"

namespace {

class PboTest : public GLTest {};

GLint allocatedBytes(ZuPboObject* pbo) {
    GLint size = 0;
    pbo->bind(true);
    glGetBufferParameteriv(GL_PIXEL_PACK_BUFFER, GL_BUFFER_SIZE, &size);
    pbo->unbind(true);
    return size;
}

} // namespace

TEST_F(PboTest, SizedOnceAndReadBackThroughAMapping) {
    ZuPboMgr* mgr = new ZuPboMgr(nullptr);
    ZuPboObject* pbo = mgr->createPboObject("scenepbo0", 4, 2);
    ASSERT_NE(pbo->getPboID(), 0u);
    EXPECT_EQ(mgr->createPboObject("scenepbo0", 9, 9), pbo);
    EXPECT_EQ(mgr->getPboObject("scenepbo0"), pbo);
    EXPECT_EQ(pbo->getByteSize(), 32);
    EXPECT_EQ(allocatedBytes(pbo), 32);
    EXPECT_FALSE(pbo->getWrite());

    glClearColor(0, 1, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    pbo->bind(true);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, 4, 2, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    pbo->setWrite();
    auto* bytes = static_cast<const uint8_t*>(glMapBufferRange(GL_PIXEL_PACK_BUFFER, 0, 32, GL_MAP_READ_BIT));
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(bytes[28], 0);
    EXPECT_EQ(bytes[29], 255);
    glUnmapBuffer(GL_PIXEL_PACK_BUFFER);
    pbo->unbind(true);
    EXPECT_TRUE(pbo->getWrite());

    EXPECT_FALSE(pbo->resetPboWidth("scenepbo0", 0, 4));
    EXPECT_TRUE(pbo->resetPboWidth("scenepbo0", 8, 8));
    EXPECT_EQ(pbo->getByteSize(), 256);
    EXPECT_EQ(allocatedBytes(pbo), 32) << "the GL buffer keeps its first size";

    GLuint id = pbo->getPboID();
    mgr->destroyPboObject(pbo);
    EXPECT_EQ(mgr->getPboObject("scenepbo0"), nullptr);
    EXPECT_FALSE(glIsBuffer(id));
    mgr->createPboObject("scenepbo1", 2, 2);
    mgr->release();  // entries go with the manager
}
