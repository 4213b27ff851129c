#include "parse/ZuParseAniFrame.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "logicsys/Animate2D/ZuAniFrameNode.h"
#include "logicsys/Animate2D/ZuAnimateFrame.h"
#include "logicsys/Animate2D/ZuKeyFrame.h"
#include "logicsys/Animate2D/ZuTimeLine.h"
#include "parse/ZuParse.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTextureSet.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

#include <cstdlib>

namespace {

const char* textOf(const rapidjson::Value& item, const char* key, const char* directory, const char* id) {
    auto member = item.FindMember(key);
    if (member == item.MemberEnd()) return nullptr;
    if (!member->value.IsString()) {
        QZLOGW("package %s, item '%s': \"%s\" is not a string; ignored", directory, id, key);
        return nullptr;
    }
    return member->value.GetString();
}

void stringArray(const rapidjson::Value& item, const char* key, const char* directory, const char* id,
                 qz::array<qz::string>& out) {
    auto member = item.FindMember(key);
    if (member == item.MemberEnd()) return;
    if (!member->value.IsArray()) {
        QZLOGW("package %s, item '%s': \"%s\" is not an array; ignored", directory, id, key);
        return;
    }
    for (const rapidjson::Value& entry : member->value.GetArray()) {
        if (entry.IsString()) out.push_back(qz::string(entry.GetString()));
        else QZLOGW("package %s, item '%s': an entry of \"%s\" is not a string; skipped", directory, id, key);
    }
}

// A pair of numbers given as ints, floats or decimal text; true when present.
bool numberPair(const rapidjson::Value& item, const char* key, const char* directory, const char* id,
                float& first, float& second) {
    auto member = item.FindMember(key);
    if (member == item.MemberEnd()) return false;
    if (!member->value.IsArray()) {
        QZLOGW("package %s, item '%s': \"%s\" is not an array; ignored", directory, id, key);
        return false;
    }
    float values[2] = {0.0f, 0.0f};
    const rapidjson::Value& array = member->value;
    for (rapidjson::SizeType i = 0; i < array.Size() && i < 2; ++i) {
        const rapidjson::Value& v = array[i];
        if (v.IsNumber()) values[i] = static_cast<float>(v.GetDouble());
        else if (v.IsString()) values[i] = static_cast<float>(atof(v.GetString()));
    }
    first = values[0];
    second = values[1];
    return true;
}

tANIPOSMODE modeOf(const qz::string& mode, tANIPOSMODE current) {
    if (mode == "fullscreen") return ANIPOS_FULLSCREEN;
    if (mode == "fittop") return ANIPOS_FITTOP;
    if (mode == "fitbottom") return ANIPOS_FITBOTTOM;
    if (mode == "toporigin") return ANIPOS_TOPORIGIN;
    if (mode == "centerorigin") return ANIPOS_CENTERORIGIN;
    if (mode == "mask") return ANIPOS_MASK;
    return current;
}

} // namespace

ZuParseData* ZuParseAniFrame::parseAniFrame(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                            const char* directory) {
    if (!value.IsObject()) return nullptr;
    const char* dir = directory ? directory : "";
    ZuParseAniFrame* data = new ZuParseAniFrame(app);
    ZuParse::parseBase(data, value, directory);
    ZuParse::parseEvent(data, value, directory);
    const char* id = data->id.c_str();
    // The id names the animation and the nodes.
    data->name = data->id;

    if (data->subType == "face") {
        data->posMode = ANIPOS_FACE;
    } else if (data->subType == "screen") {
        data->isScreen = true;
        if (ZuGBase::configOf(app))
            app->getGlobalMgr()->getConfig()->screenAnimation = true;
    } else if (data->subType == "mask") {
        data->isFaceMask = true;
        data->posMode = ANIPOS_MASK;
    }
    if (const char* mode = textOf(value, "mode", dir, id)) {
        data->mode = mode;
        data->posMode = modeOf(data->mode, data->posMode);
    }
    stringArray(value, "images", dir, id, data->images);
    stringArray(value, "plist", dir, id, data->plists);
    textOf(value, "mask", dir, id); // read for its type check only
    float x = 0.0f, y = 0.0f;
    if (numberPair(value, "h", dir, id, x, y) && (x != 0.0f || y != 0.0f)) {
        data->offX = x;
        data->offY = y;
        data->offsetSet = true;
    }
    if (numberPair(value, "s", dir, id, x, y) && (x != 0.0f || y != 0.0f)) {
        data->scaleX = x;
        data->scaleY = y;
        data->scaleSet = true;
    }
    if (const char* r = textOf(value, "r", dir, id)) data->rotate = !(qz::string("0") == r);
    if (const char* fps = textOf(value, "fps", dir, id)) data->fps = static_cast<float>(atof(fps));
    if (const char* index = textOf(value, "index", dir, id)) data->bindIndex = atoi(index) / 10;
    if (const char* playIndex = textOf(value, "playIndex", dir, id)) data->hasPlayIndex = playIndex[0] != '\0';
    // A screen sticker with no trigger plays as soon as its package is ready.
    if (data->isScreen && data->triggeredBy.size() == 0) {
        ZuTriggeredBy any;
        any.category = "any";
        data->triggeredBy.push_back(any);
    }
    return data;
}

ZuAniFrameNode* ZuParseAniFrame::buildNode(int person, const char* sceneName, const char* directory) {
    ZuNodeMgr* nodeMgr = ZuGBase::nodeMgrOf(app);
    if (!nodeMgr || !nodeMgr->getCreator()) return nullptr;
    auto* node = dynamic_cast<ZuAniFrameNode*>(
        nodeMgr->getCreator()->createNodeAsync("ZuAniFrameNode", sceneName, name.c_str(), person, resUID));
    if (!node) return nullptr;
    ZuAnimateFrame* animate = new ZuAnimateFrame(app);
    animate->setresid(resUID);
    animate->setsceneName(sceneName);
    animate->setaniName(id.c_str());
    node->setAinFrame(animate);
    animate->release();

    const qz::string dir(directory ? directory : "");
    for (uint32_t i = 0; i < images.size(); ++i) animate->pushTexName((dir + images[i]).c_str());
    ZuTexMgr* textures = app->getGlobalMgr()->getTexMgr();
    for (uint32_t i = 0; i < plists.size() && textures; ++i) {
        qz::string path = dir + plists[i] + ".json";
        animate->addTexturePList(textures->loadImgPList(path.c_str(), dir.c_str()));
    }

    node->setisScreen(isScreen);
    node->setisFaceMask(isFaceMask);
    node->setposmode(posMode);
    if (offsetSet) {
        node->setcfgoffx(offX);
        node->setcfgoffy(offY);
    }
    if (scaleSet) {
        node->setcfgsx(scaleX);
        node->setcfgsy(scaleY);
    }
    if (rotate) node->setcfgrot(true);
    node->setcfgbindindex(bindIndex);

    ZuTimeLine* timeLine = new ZuTimeLine();
    timeLine->zuinit(fps);
    if (!hasPlayIndex) {
        const qz::array<qz::string>& names = animate->getTexNameArray();
        for (uint32_t i = 0; i < names.size(); ++i) {
            ZuKeyFrame* frame = new ZuKeyFrame(app);
            frame->setframeID(i);
            frame->initTexture(names[i].c_str());
            timeLine->pushFrame(frame);
        }
    }
    animate->setM_TimeLine(timeLine);

    node->setresUID(resUID);
    node->setaniName(id.c_str());
    node->setpersonID(person);
    node->setZOrder(order);
    node->setloop(loop == 1);
    node->getTriggers().loadTrigEvents(*this, sceneName, person, resUID);
    return node;
}

void ZuParseAniFrame::generate(int newResUID, const char* sceneName, char* directory) {
    resUID = newResUID;
    if (images.size() == 0 && plists.size() == 0)
        QZLOGW("package %s, item '%s': no \"images\" and no \"plist\"; the animation draws nothing",
               directory ? directory : "", id.c_str());
    qz::array<int> persons;
    if (!mode.empty()) persons.push_back(0);
    else if (personID != 0) persons.push_back(personID);
    else for (int p = 1; p <= 4; ++p) persons.push_back(p);
    for (uint32_t i = 0; i < persons.size(); ++i) {
        ZuAniFrameNode* node = buildNode(persons[i], sceneName, directory);
        if (node) _addNode(node);
    }
}
