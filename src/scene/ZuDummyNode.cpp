#include "scene/ZuDummyNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEffectEvent.h"
#include "event/ZuEventMgr.h"

ZuDummyNode::ZuDummyNode(ZuAppMain* app) : ZuNode(app) { setType("ZuDummyNode"); }

void ZuDummyNode::update(float delta) {
    ZuNode::update(delta);
    if (readySent || !isReady()) return;
    for (uint32_t i = 0; i < m_children.size(); i++)
        if (m_children[i] && !m_children[i]->isReady()) return;
    readySent = true;
    ZuEventMgr* events = eventMgr();
    if (!events) return;
    ZuEffectEvent* event = new ZuEffectEvent(m_sceneName.c_str(), ZU_EVENT_EFFECT);
    event->name = "any";
    event->targetUid = m_resUID;
    event->resUID = m_resUID;
    event->state = 1;
    if (!events->pushEvent(event)) event->release();  // refused after shut-down
}
