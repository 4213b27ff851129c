#include "operate/ZuOperateDeleteLogicScene.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "scene/ZuVisitCollectAllNode.h"

void ZuOperateDeleteLogicScene::process(float) {
    ZuSceneMgr* scenes = zuop::sceneMgr(app);
    if (!scenes) return;
    ZuScene* scene = scenes->getScene(name.c_str());
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    if (scene && nodes) {
        // Collect first: deleting while walking would disturb the walk.
        ZuVisitCollectAllNode* collect = new ZuVisitCollectAllNode();
        scene->deepVisit(collect);
        const qz::array<ZuNode*>& found = collect->getNodes();
        // Held across the deletions: a node that only its parent owned would
        // otherwise go with the parent while still in the list.
        for (uint32_t i = 0; i < found.size(); i++) found[i]->retain();
        for (uint32_t i = 0; i < found.size(); i++)
            if (found[i] != scene) nodes->delNode(found[i]->getuid());
        for (uint32_t i = 0; i < found.size(); i++) found[i]->release();
        collect->release();
    }
    scenes->destroyScene(name.c_str());
}
