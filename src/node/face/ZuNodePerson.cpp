#include "node/face/ZuNodePerson.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "scene/ZuNode.h"

ZuPerson* ZuNodePerson::of(const ZuNode* node, int personID) {
    ZuAppMain* app = node ? node->getApp() : nullptr;
    ZuPersonSys* persons = ZuGBase::personSysOf(app);
    return persons ? persons->getPerson(node->getSceneName().c_str(), personID) : nullptr;
}

ZuPerson* ZuNodePerson::of(const ZuNode* node) { return node ? of(node, node->getpersonID()) : nullptr; }

ZuPersonTracker* ZuNodePerson::trackerOfPresent(const ZuNode* node) {
    ZuPerson* person = of(node);
    return person && person->getExist() ? person->getTracker() : nullptr;
}
