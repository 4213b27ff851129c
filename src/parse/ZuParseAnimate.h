#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "parse/ZuParseDataEvent.h"

#include <rapidjson/document.h>

class ZuAniSpineNode;
class ZuParseTexHead;

// A skeletal "anim" item (one with a "spine" member): the skeleton and atlas
// files, the bones pinned to landmarks, a mask, bones whose place is
// reported, head pictures, and the triggers. generate builds one
// ZuAniSpineNode for the screen or a chosen person, or one for each of the
// four persons a scene tracks.
class ZuParseAnimate : public ZuParseDataEvent {
public:
    explicit ZuParseAnimate(ZuAppMain* app) : ZuParseDataEvent(app) {}
    ~ZuParseAnimate() override;

    static ZuParseData* parseAnim(ZuAppMain* app, const rapidjson::Value& value, int resUID, const char* sceneName,
                                  const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    static ZuAniSpineNode* inner_createVersion2SpineAnimate(ZuAppMain* app, ZuParseAnimate* item, const char* scene,
                                                            int person, int uid);
    static void inner_load_trigevent(ZuParseAnimate* item, const char* scene, ZuAniSpineNode* node);

    // Retains data.
    void setTexHeadData(ZuParseTexHead* data);
    ZuParseTexHead* getTexHeadData() const { return texHead; }

    bool hasSpine = false;
    qz::string spineName;
    qz::string directory;
    qz::string texMask;
    qz::string animation;
    qz::array<qz::string> syncPosBoneNames;
    qz::array<qz::string> boneMapBones;
    qz::array<qz::string> boneMapIndices;

private:
    ZuParseTexHead* texHead = nullptr;
};
