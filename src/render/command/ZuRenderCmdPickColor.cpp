#include "render/command/ZuRenderCmdPickColor.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEventMgr.h"
#include "event/ZuPickEvent.h"
#include "render/math/ZuColor.h"

#include <GLES2/gl2.h>

namespace {
const int kPickWidth = 720;
const int kPickHeight = 1280;
} // namespace

void ZuRenderCmdPickColor::render() {
    if (x < 1 || y < 1 || x >= kPickWidth || y >= kPickHeight) return;
    unsigned char pixel[4] = {0, 0, 0, 0};
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    id = ZuColor::transRgbaToID(pixel[0], pixel[1], pixel[2], pixel[3]);
    if (id == 0xFFFFFFFFu) return;
    ZuEventMgr* events = ZuGBase::eventMgrOf(app);
    if (!events) return;
    ZuPickEvent* event = new ZuPickEvent();
    event->name = nodeName;
    event->pickedUid = static_cast<int>(id);
    if (!events->pushEvent(event)) event->release();
}
