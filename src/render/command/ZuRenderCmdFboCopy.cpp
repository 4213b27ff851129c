#include "render/command/ZuRenderCmdFboCopy.h"

#include "render/command/ZuRenderScene.h"
#include "render/fbo/ZuFboObject.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>

ZuRenderCmdFboCopy::ZuRenderCmdFboCopy(ZuFboObject* source) : source(source) {
    if (source) source->retain();
}

ZuRenderCmdFboCopy::~ZuRenderCmdFboCopy() { qzSafeRelease(source); }

void ZuRenderCmdFboCopy::render() {
    ZuFboObject* target = scene ? scene->curFbo : nullptr;
    if (!source || !target || source == target || !source->getFboID() || !target->getMainTex()) return;
    int width = source->getFrameWidth() < target->getFrameWidth() ? source->getFrameWidth() : target->getFrameWidth();
    int height =
        source->getFrameHeight() < target->getFrameHeight() ? source->getFrameHeight() : target->getFrameHeight();
    if (width <= 0 || height <= 0) return;
    glBindFramebuffer(GL_FRAMEBUFFER, source->getFboID());
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, static_cast<unsigned>(target->getMainTex()->getid()));
    glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 0, 0, width, height);
    glBindFramebuffer(GL_FRAMEBUFFER, target->getFboID());
}
