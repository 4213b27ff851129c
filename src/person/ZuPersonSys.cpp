#include "person/ZuPersonSys.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "person/ZuPerson.h"
#include "person/ZuPosData.h"
#include "platform/ZuLog.h"
#include "scene/ZuScene.h"

ZuPersonSys::ZuPersonSys(ZuAppMain* app) : ZuGBase(app) {
    lock.create();
}

ZuPersonSys::~ZuPersonSys() {
    destroy();
    lock.destroy();
}

void ZuPersonSys::init() {
    detectType = DETECTTYPE_NONE;
}

void ZuPersonSys::releasePersons(PersonList* persons) {
    for (auto it = persons->begin(); it != persons->end(); ++it) {
        (*it)->destroy();
        (*it)->release();
    }
    delete persons;
}

void ZuPersonSys::destroy() {
    {
        ZuLockGuard guard(lock);
        for (auto it = scenes.getIterator(); !it.atEnd(); ++it) releasePersons(it->getValue());
        scenes.clear();
    }
    ZuLockGuard guard(tableLock);
    qzSafeRelease(positionTable);
}

ZuPosData* ZuPersonSys::retainPositionTable() {
    if (!app) return nullptr;
    ZuLockGuard guard(tableLock);
    if (!positionTable) {
        positionTable = new ZuPosData(app);
        positionTable->init(ZuPosData::kDefaultFile);
    }
    positionTable->retain();
    return positionTable;
}

void ZuPersonSys::createPersonByScene(const char* scene) {
    if (!scene) {
        QZLOGW("ZuPersonSys::createPersonByScene: no scene name, no persons made");
        return;
    }
    ZuLockGuard guard(lock);
    const qz::string name(scene);
    if (scenes.find(name)) return;
    PersonList* persons = new PersonList();
    for (int id = 1; id <= kPersonsPerScene; ++id) {
        ZuPerson* person = new ZuPerson();
        person->setPersonID(id);
        person->setSceneName(scene);
        person->init(app);
        person->setDetectType(detectType);
        persons->push_back(person);
    }
    scenes.insert(name, persons);
}

void ZuPersonSys::delPersonByScene(const char* scene) {
    if (!scene) return;
    ZuLockGuard guard(lock);
    auto* entry = scenes.find(scene); // no temporary key: this runs for every sticker every frame
    if (!entry) return;
    releasePersons(entry->getValue());
    scenes.remove(entry);
}

void ZuPersonSys::setDetectType(DETECTTYPE type) {
    ZuLockGuard guard(lock);
    for (auto it = scenes.getIterator(); !it.atEnd(); ++it) {
        PersonList* persons = it->getValue();
        for (auto p = persons->begin(); p != persons->end(); ++p) (*p)->setDetectType(type);
    }
    detectType = type;
}

const ZuPersonSys::PersonList* ZuPersonSys::personsOf(const char* scene) const {
    if (!scene) return nullptr;
    auto* entry = scenes.find(scene); // no temporary key: this runs for every sticker every frame
    return entry ? entry->getValue() : nullptr;
}

const char* ZuPersonSys::currentSceneName() const {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    ZuScene* scene = param ? param->activeScene : nullptr;
    return scene ? scene->getname().c_str() : nullptr;
}

ZuPerson* ZuPersonSys::getPerson(const char* scene, int id) const {
    const PersonList* persons = personsOf(scene);
    if (!persons) return nullptr;
    for (auto it = persons->begin(); it != persons->end(); ++it) {
        if ((*it)->getPersonID() == id) return *it;
    }
    return nullptr;
}

ZuPerson* ZuPersonSys::getPerson(int id) const {
    return getPerson(currentSceneName(), id);
}

ZuPerson* ZuPersonSys::getPersonByIndex(const char* scene, int index) const {
    const PersonList* persons = personsOf(scene);
    if (!persons || index < 0) return nullptr;
    int i = 0;
    for (auto it = persons->begin(); it != persons->end(); ++it, ++i) {
        if (i == index) return *it;
    }
    return nullptr;
}

ZuPerson* ZuPersonSys::getPersonByIndex(int index) const {
    return getPersonByIndex(currentSceneName(), index);
}

int ZuPersonSys::getPersonExistNum(const char* scene) const {
    const PersonList* persons = personsOf(scene);
    if (!persons) return 0;
    int count = 0;
    for (auto it = persons->begin(); it != persons->end(); ++it) {
        if ((*it)->getExistState() == 1) ++count;
    }
    return count;
}

void ZuPersonSys::update(float delta) {
    ZuConfig* config = ZuGBase::configOf(app);
    const bool keepOne = config && config->alwaysShowOne;
    for (auto it = scenes.getIterator(); !it.atEnd(); ++it) {
        PersonList* persons = it->getValue();
        for (auto p = persons->begin(); p != persons->end(); ++p) (*p)->update(delta);
        if (keepOne && getPersonExistNum(it->getKey().c_str()) == 0 && !persons->empty())
            (*persons->begin())->setExistState(2);
    }
}
