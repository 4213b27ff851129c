#include "render/command/ZuRenderCmdReadPixelPbo.h"

#include "data/ZuDataSwap.h"
#include "platform/ZuLog.h"
#include "render/fbo/ZuPboObject.h"

#include <GLES3/gl3.h>
#include <cstring>

void ZuRenderCmdReadPixelPbo::render() {
    int rows = readRows(format, height);
    long long bytes = static_cast<long long>(width) * rows * 4;
    if (writePbo && bytes > 0) {
        if (bytes > writePbo->getAllocatedSize()) {
            QZLOGW("pixel buffer of %d bytes cannot take a %lld-byte frame", writePbo->getAllocatedSize(), bytes);
        } else {
            writePbo->bind(true);
            glPixelStorei(GL_PACK_ALIGNMENT, 4);
            glReadPixels(0, 0, width, rows, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
            writePbo->setWrite();
            writePbo->unbind(true);
        }
    }
    glFlush();
    if (!readPbo || !readPbo->getWrite() || bytes <= 0 || bytes > readPbo->getAllocatedSize()) return;
    readPbo->bind(true);
    void* mapped = glMapBufferRange(GL_PIXEL_PACK_BUFFER, 0, static_cast<GLsizeiptr>(bytes), GL_MAP_READ_BIT);
    if (mapped) {
        if (dataSwap) {
            dataSwap->lockData();
            bool fits = dataSwap->getData() && bytes <= dataSwap->getSize();
            if (fits) memcpy(dataSwap->getData(), mapped, static_cast<size_t>(bytes));
            dataSwap->unlockData();
            if (fits) dataSwap->setWrite();
        }
        glUnmapBuffer(GL_PIXEL_PACK_BUFFER);
    }
    readPbo->unbind(true);
}
