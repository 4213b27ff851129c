#include "parse/ZuParseMorph.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "data/DETECTTYPE.h"
#include "node/beauty/ZuBeautyNode.h"
#include "node/morph/ZuFaceFatNode.h"
#include "node/morph/ZuFaceMorphNode.h"
#include "parse/ZuItemText.h"
#include "parse/ZuParse.h"
#include "parse/ZuSmallFaceSetup.h"
#include "platform/ZuLog.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

#include <cstring>

namespace {

struct Shape {
    const char* mode;
    const char* type;
};
const Shape kAsShapes[] = {
    {"fat", "ZuFaceFatNode"},
    {"square", "ZuFaceSquareNode"},
    {"bear", "ZuFaceBearNode"},
    {"bear_fat", "ZuFaceBearFatNode"},
    {"bear_fat_pointy", "ZuFaceBearFatPointyNode"},
    {"bear_fattish_pointy", "ZuFaceBearFattishPointyNode"},
    {"bear_pointy", "ZuFaceBearPointyNode"},
    {"bear_slim_pointy", "ZuFaceBearSlimPointyNode"},
};
const char* const kSlimModes[] = {"slim", "slim_snake", "slim_snake_shrink", "slim_short", "slim_short_shrink"};

} // namespace

const char* ZuParseMorph::asMorphType(const char* mode) {
    for (const Shape& shape : kAsShapes)
        if (mode && std::strcmp(mode, shape.mode) == 0) return shape.type;
    return nullptr;
}

bool ZuParseMorph::isSlimMode(const char* mode) {
    for (const char* slim : kSlimModes)
        if (mode && std::strcmp(mode, slim) == 0) return true;
    return false;
}

ZuParseData* ZuParseMorph::parseMorph(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                      const char* directory) {
    if (!value.IsObject()) return nullptr;
    const char* dir = directory ? directory : "";
    auto mode = value.FindMember("mode");
    if (mode == value.MemberEnd() || !mode->value.IsString()) {
        QZLOGW("package %s, item '%s': morph without a text \"mode\"; skipped", dir, ZuItemText::idOf(value));
        return nullptr;
    }
    ZuParseMorph* data = new ZuParseMorph(app);
    ZuParse::parseBase(data, value, directory);
    data->mode = mode->value.GetString();
    bool ok = true;
    // Absent keys keep their defaults; present but unreadable ones spoil the item.
    auto read = [&](const char* key, float& out) {
        if (value.HasMember(key) && !ZuItemText::number(value, key, directory, out)) ok = false;
    };
    read("adjust", data->adjust);
    read("bulgeCircle", data->bulgeCircle);
    read("adjust2", data->adjust2);
    read("adjust3", data->adjust3);
    read("adjust4", data->adjust4);
    read("short", data->shortValue);
    if (value.HasMember("bulgeX") && !ZuItemText::numbers(value, "bulgeX", directory, data->bulgeX, 8)) ok = false;
    if (value.HasMember("bulgeY") && !ZuItemText::numbers(value, "bulgeY", directory, data->bulgeY, 8)) ok = false;
    if (!ok) {
        QZLOGW("package %s, item '%s': morph skipped", dir, ZuItemText::idOf(value));
        data->release();
        return nullptr;
    }
    return data;
}

ZuNode* ZuParseMorph::create(const char* type, const char* sceneName, int index) {
    ZuNodeMgr* nodeMgr = ZuGBase::nodeMgrOf(app);
    if (!nodeMgr || !nodeMgr->getCreator()) return nullptr;
    ZuNode* node = nodeMgr->getCreator()->createNodeAsync(type, sceneName, name.c_str(), index, resUID);
    if (!node) QZLOGW("morph '%s': no node of type %s in this engine", name.c_str(), type);
    return node;
}

void ZuParseMorph::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    ZuConfig* config = ZuGBase::configOf(app);
    int detect = config ? config->getDetectType() : DETECTTYPE_NONE;
    if (isSlimMode(mode.c_str()) &&
        (detect == DETECTTYPE_AS || detect == DETECTTYPE_ST || detect == DETECTTYPE_FP)) {
        addSlimBeauty(sceneName);
    } else if (detect == DETECTTYPE_AS) {
        generateAS(sceneName);
    } else if (detect == DETECTTYPE_ST || detect == DETECTTYPE_FP) {
        generateSmallFaces(sceneName);
    } else {
        QZLOGW("morph '%s': no face shapes for tracker type %d", name.c_str(), detect);
    }
}

// The slim modes are the beauty warp at fixed, moderate factors.
void ZuParseMorph::addSlimBeauty(const char* sceneName) {
    auto* node = dynamic_cast<ZuBeautyNode*>(create("ZuBeautyNode", sceneName, 0));
    if (!node) return;
    node->setresUID(resUID);
    node->setpersonID(1);
    node->setEyeLarge(0.301f, 0.301f);
    node->setFaceSlim(0.974f);
    node->setChinSlim(0.924f);
    node->setChinUpSlim(0.916f);
    node->setChinMiddleSlim(0.89f);
    node->setZOrder(order);
    _addNode(node);
}

void ZuParseMorph::generateAS(const char* sceneName) {
    const bool bulge = mode == "bulge";
    const char* type = bulge ? "ZuFaceFatNode" : asMorphType(mode.c_str());
    if (!type) {
        QZLOGW("morph '%s': no shape \"%s\"", name.c_str(), mode.c_str());
        return;
    }
    // The grid morph follows person 1 whatever its own person number.
    auto* node = dynamic_cast<ZuFaceMorphNode*>(create(type, sceneName, 0));
    if (!node) return;
    node->setresUID(resUID);
    node->setpersonID(0);
    if (bulge) {
        float table[8] = {1, 2, 2, 2, 2, 2, 0, 0};
        node->setParameter(0.0f, table, table);
        node->setBulgeArray(bulgeX, bulgeY, bulgeCircle);
    } else {
        node->setParameter(adjust, nullptr, nullptr);
    }
    node->setZOrder(order);
    _addNode(node);
}

void ZuParseMorph::generateSmallFaces(const char* sceneName) {
    const char* type = nullptr;
    float level = 0.8f, bearValue = 0.0f;
    bool small = false;
    if (mode == "bear" && adjust < 1.0f) {
        type = "ZuKejiSmallShortFaceNode", level = 0.9f, small = true, bearValue = 2.0f;
    } else if (mode == "bear" && adjust == 1.0f) {
        type = "ZuSmallFaceNode";
    } else if (mode == "bear_fat") {
        type = "ZuPigFaceNode";
    }
    if (!type) {
        QZLOGW("morph '%s': no shape \"%s\" with strength %g on this tracker", name.c_str(), mode.c_str(), adjust);
        return;
    }
    if (personID < 0 || personID > 4) {
        QZLOGW("morph '%s': person %d is none of 1..4; no shape", name.c_str(), personID);
        return;
    }
    int first = personID == 0 ? 1 : personID, last = personID == 0 ? 4 : personID;
    for (int person = first; person <= last; ++person) {
        ZuNode* node = create(type, sceneName, person);
        if (!node) return;
        node->setresUID(resUID);
        node->setpersonID(person);
        ZuSmallFaceSetup::apply(node, level, small, bearValue);
        node->setZOrder(order);
        _addNode(node);
    }
}
