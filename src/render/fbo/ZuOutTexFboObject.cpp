#include "render/fbo/ZuOutTexFboObject.h"

bool ZuOutTexFboObject::resetOutTexFboWidth(int w, int h, unsigned int texId) {
    return buildFramebuffer(w, h, static_cast<long long>(texId));
}
