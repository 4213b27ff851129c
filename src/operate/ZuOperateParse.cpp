#include "operate/ZuOperateParse.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEventMgr.h"
#include "event/ZuParseEvent.h"
#include "operate/ZuOperateFilterEft.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateSceneAccess.h"
#include "parse/ZuParseMgr.h"
#include "platform/ZuLog.h"
#include "scene/ZuDiySys.h"

ZuOperateParse::ZuOperateParse(ZuAppMain* app, int resUID, const char* scene, const char* path, int slot,
                               const char* gameName)
    : ZuOpLoadBase(app), resUID(resUID), scene(scene), path(path), gameName(gameName), slot(slot) {}

void ZuOperateParse::takeHeads(qz::array<SpineHeadRes>* hostHeads) {
    if (!hostHeads) return;
    for (uint32_t i = 0; i < hostHeads->size(); i++) heads.push_back((*hostHeads)[i]);
    hostHeads->clear();
}

void ZuOperateParse::process(float) {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    if (!global || !zuop::scene(app, scene.c_str()) || !ZuDiySys::detectResType(slot)) return;
    if (ZuConfig* config = global->getConfig()) config->screenAnimation = false;
    if (ZuOperateMgr* operates = global->getOperateMgr()) {
        ZuOperateFilterEft* claim = new ZuOperateFilterEft(app, slot, resUID);
        operates->pushOperate(claim);
        claim->release();
    }
    ZuParseMgr* parser = global->getParseMgr();
    if (parser && heads.size() > 0) parser->parseTexHeadStream(&heads);
    bool success = parser && parser->parse(path.c_str(), resUID, scene.c_str());
    if (!success) QZLOGW("effect package %s could not be read (resUID %d)", path.c_str(), resUID);
    if (ZuEventMgr* events = global->getEventMgr()) {
        ZuParseEvent* event = new ZuParseEvent(scene.c_str());
        event->success = success;
        event->parsedResUID = resUID;
        event->resUID = resUID;
        event->name = path;
        if (!events->pushEvent(event)) event->release();
    }
}
