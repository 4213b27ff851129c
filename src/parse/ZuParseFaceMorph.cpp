#include "parse/ZuParseFaceMorph.h"

#include "basesys/ZuGBase.h"
#include "parse/ZuItemText.h"
#include "parse/ZuParse.h"
#include "parse/ZuSmallFaceSetup.h"
#include "platform/ZuLog.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNode.h"
#include "scene/ZuNodeMgr.h"

#include <cstring>

bool ZuParseFaceMorph::warpOf(int morphType, const char** nodeType, float* level, bool* small) {
    struct Row {
        int morphType;
        const char* nodeType;
        float level;
        bool small;
    };
    static const Row kRows[] = {
        {1, "ZuSmallFaceNode", 0.8f, true},         {2, "ZuSmallFaceNode", 1.2f, true},
        {3, "ZuSmallFaceNode", 0.6f, false},        {4, "ZuSmallShortFaceNode", 0.8f, true},
        {5, "ZuPigFaceNode", 0.8f, false},          {7, "ZuSmallShrinkFaceNode", 1.2f, true},
        {8, "ZuSmallShortShrinkNode", 0.8f, true},
    };
    for (const Row& row : kRows)
        if (row.morphType == morphType) {
            *nodeType = row.nodeType, *level = row.level, *small = row.small;
            return true;
        }
    return false;
}

ZuParseData* ZuParseFaceMorph::parseFaceMorph(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                              const char* directory) {
    if (!value.IsObject()) return nullptr;
    const char* dir = directory ? directory : "";
    auto type = value.FindMember("type");
    if (type == value.MemberEnd() || !type->value.IsString() || std::strcmp(type->value.GetString(), "faceMorph"))
        return nullptr;
    ZuParseFaceMorph* data = new ZuParseFaceMorph(app);
    ZuParse::parseBase(data, value, directory);
    bool ok = true;
    auto morphType = value.FindMember("faceMorphType");
    if (morphType != value.MemberEnd()) {
        if (morphType->value.IsInt()) data->faceMorphType = morphType->value.GetInt();
        else ok = false, QZLOGW("package %s, item '%s': \"faceMorphType\" is not a whole number", dir, ZuItemText::idOf(value));
    }
    auto isSmall = value.FindMember("isSmall");
    if (isSmall != value.MemberEnd()) {
        if (isSmall->value.IsBool()) data->isSmall = isSmall->value.GetBool();
        else ok = false, QZLOGW("package %s, item '%s': \"isSmall\" is not true or false", dir, ZuItemText::idOf(value));
    }
    if (value.HasMember("value") && !ZuItemText::number(value, "value", directory, data->value)) ok = false;
    if (value.HasMember("smallLevel") && !ZuItemText::number(value, "smallLevel", directory, data->smallLevel))
        ok = false;
    if (value.HasMember("deltaArray")) {
        data->hasDeltaArray = ZuItemText::numbers(value, "deltaArray", directory, data->deltaArray, 8);
        ok = ok && data->hasDeltaArray;
    }
    if (!ok) {
        QZLOGW("package %s, item '%s': faceMorph skipped", dir, ZuItemText::idOf(value));
        data->release();
        return nullptr;
    }
    return data;
}

void ZuParseFaceMorph::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    const char* nodeType = nullptr;
    float level = 0.0f;
    bool small = true;
    if (!warpOf(faceMorphType, &nodeType, &level, &small)) {
        QZLOGW("faceMorph '%s': morph type %d makes no shape", name.c_str(), faceMorphType);
        return;
    }
    if (personID < 0 || personID > 4) {
        QZLOGW("faceMorph '%s': person %d is none of 1..4; no shape", name.c_str(), personID);
        return;
    }
    ZuNodeMgr* nodeMgr = ZuGBase::nodeMgrOf(app);
    if (!nodeMgr || !nodeMgr->getCreator()) return;
    int first = personID == 0 ? 1 : personID, last = personID == 0 ? 4 : personID;
    for (int person = first; person <= last; ++person) {
        ZuNode* node = nodeMgr->getCreator()->createNodeAsync(nodeType, sceneName, name.c_str(), person, resUID);
        if (!node) {
            QZLOGW("faceMorph '%s': no node of type %s in this engine", name.c_str(), nodeType);
            return;
        }
        node->setresUID(resUID);
        node->setpersonID(person);
        ZuSmallFaceSetup::apply(node, level, small, 0.0f);
        node->setZOrder(order);
        _addNode(node);
    }
}
