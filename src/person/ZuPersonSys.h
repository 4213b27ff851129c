#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/ZuLock.h"
#include "basesys/qzList.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"
#include "data/DETECTTYPE.h"

class ZuPerson;

// The persons of every scene: exactly four per scene, ids 1 to 4 in list
// order, made with the scene and released with it.
class ZuPosData;

class ZuPersonSys : public ZuGBase {
public:
    static constexpr int kPersonsPerScene = kMaxDetectFaces;

    explicit ZuPersonSys(ZuAppMain* app);
    ~ZuPersonSys() override;

    void init();
    void destroy();
    // Keeps "alwaysShowOne" true: with no face anywhere in a scene its first
    // person stays present.
    void update(float delta);

    // Nothing happens for a scene that already has its persons.
    void createPersonByScene(const char* scene);
    void delPersonByScene(const char* scene);
    void setDetectType(DETECTTYPE type);
    DETECTTYPE getDetectType() const { return detectType; }

    // Null for an unknown scene or id. Without a scene name: the current scene.
    ZuPerson* getPerson(const char* scene, int id) const;
    ZuPerson* getPerson(int id) const;
    // Index from 0 in list order.
    ZuPerson* getPersonByIndex(const char* scene, int index) const;
    ZuPerson* getPersonByIndex(int index) const;
    // Persons with a face in the latest record; those only kept present do not count.
    int getPersonExistNum(const char* scene) const;

    // The head-pose position table of the animoji trackers, read once for the
    // engine and shared by every person (it never changes once read):
    // retained for the caller. Null only when there is no engine.
    ZuPosData* retainPositionTable();

private:
    using PersonList = qz::list<ZuPerson*>;

    const PersonList* personsOf(const char* scene) const;
    const char* currentSceneName() const;
    static void releasePersons(PersonList* persons);

    qz::map<qz::string, PersonList*> scenes;
    ZuLock lock;
    DETECTTYPE detectType = DETECTTYPE_NONE;
    // Its own lock: persons ask for it while the person lock may be held.
    ZuLock tableLock;
    ZuPosData* positionTable = nullptr;
};
