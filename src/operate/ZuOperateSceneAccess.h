#pragma once

class ZuAppMain;
class ZuNodeMgr;
class ZuSceneMgr;
class ZuScene;
class ZuEventMgr;

// What operations look up at run time: each may be gone (the host may delete
// a scene between the push and the frame), so every answer may be null.
namespace zuop {
ZuSceneMgr* sceneMgr(ZuAppMain* app);
ZuNodeMgr* nodeMgr(ZuAppMain* app);
ZuEventMgr* eventMgr(ZuAppMain* app);
ZuScene* scene(ZuAppMain* app, const char* name);
} // namespace zuop
