#include "parse/ZuParseGatherFilter.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/filter/ZuBeauFilterNode.h"
#include "node/filter/ZuBeauFilterTable.h"
#include "node/filter/ZuFilterNode.h"
#include "parse/ZuParse.h"
#include "platform/ZuLog.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

#include <cstdlib>
#include <string>

namespace {

const int kRgbTableBytes = 256 * 3;
const int kValueTableBytes = 256;

// An array of ints as bytes (each cut to its low byte), malloc'ed; null when
// the key is absent or not an array of ints.
char* readTable(const rapidjson::Value& file, const char* key, int* size, const char* path) {
    auto member = file.FindMember(key);
    if (member == file.MemberEnd()) return nullptr;
    if (!member->value.IsArray()) {
        QZLOGW("filter file %s: \"%s\" is not an array; ignored", path, key);
        return nullptr;
    }
    const rapidjson::Value& array = member->value;
    if (array.Size() == 0) return nullptr;
    char* table = static_cast<char*>(std::malloc(array.Size()));
    for (rapidjson::SizeType i = 0; i < array.Size(); ++i) {
        if (!array[i].IsInt()) {
            QZLOGW("filter file %s: \"%s\"[%u] is not an int; table ignored", path, key, i);
            std::free(table);
            return nullptr;
        }
        table[i] = static_cast<char>(array[i].GetInt() & 0xFF);
    }
    *size = static_cast<int>(array.Size());
    return table;
}

float readNumberText(const rapidjson::Value& file, const char* key) {
    auto member = file.FindMember(key);
    return member != file.MemberEnd() && member->value.IsString() ? static_cast<float>(atof(member->value.GetString()))
                                                                   : 0.0f;
}

} // namespace

ZuParseGatherFilter::~ZuParseGatherFilter() {
    std::free(brightness);
    std::free(contrast);
    std::free(hsv);
}

ZuParseData* ZuParseGatherFilter::parseGatherFilter(ZuAppMain* app, const rapidjson::Value& value, int,
                                                    const char*, const char* directory) {
    if (!value.IsObject()) return nullptr;
    auto* data = new ZuParseGatherFilter(app);
    ZuParse::parseBase(data, value, directory);
    data->name = data->id;
    auto filterName = value.FindMember("filterName");
    if (filterName != value.MemberEnd() && filterName->value.IsString())
        data->readFilterFile(directory, filterName->value.GetString());
    return data;
}

bool ZuParseGatherFilter::readFilterFile(const char* directory, const char* filterName) {
    ZuFileMgr* files = fileMgr();
    if (!files) return false;
    const std::string path = std::string(directory ? directory : "") + filterName + ".json";
    DataChunk chunk;
    if (!files->loadFileContentStr(&chunk, path.c_str()) || !chunk.getBuffer()) {
        QZLOGW("filter file %s cannot be read; the item keeps its subType look", path.c_str());
        return false;
    }
    rapidjson::Document file;
    file.Parse(chunk.getBuffer(), static_cast<size_t>(chunk.getSize()));
    if (file.HasParseError() || !file.IsObject()) {
        QZLOGW("filter file %s is not a JSON object; the item keeps its subType look", path.c_str());
        return false;
    }
    deltas = readNumberText(file, "Deltas");
    deltah = readNumberText(file, "Deltah");
    brightness = readTable(file, "brightness", &brightnessSize, path.c_str());
    contrast = readTable(file, "contrast", &contrastSize, path.c_str());
    hsv = readTable(file, "hsv", &hsvSize, path.c_str());
    return true;
}

bool ZuParseGatherFilter::tablesComplete() const {
    return (!brightness || brightnessSize >= kRgbTableBytes) && (!contrast || contrastSize >= kRgbTableBytes) &&
           (!hsv || hsvSize >= kValueTableBytes);
}

void ZuParseGatherFilter::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    ZuNodeMgr* nodes = nodeMgr();
    if (!nodes || !nodes->getCreator()) return;
    if (hasTables() && tablesComplete()) {
        // A filter file's own curves make a run-time look.
        auto* node = dynamic_cast<ZuFilterNode*>(
            nodes->getCreator()->createNodeAsync("ZuFilterNode", sceneName, name.c_str(), 0, resUID));
        if (!node) return;
        node->setFilter(deltas, deltah, brightness, contrast, hsv);
        _addNode(node);
        return;
    }
    if (hasTables())
        QZLOGW("filterGather '%s': the filter file's tables are shorter than 256 entries; no look", name.c_str());
    auto* node = dynamic_cast<ZuBeauFilterNode*>(
        nodes->getCreator()->createNodeAsync("ZuBeauFilterNode", sceneName, name.c_str(), 0, resUID));
    if (!node) return;
    const int type = hasTables() ? -1 : ZuBeauFilterTable::typeOf(subType.c_str());
    if (type >= 0) {
        node->setFilterType(static_cast<ZUBEAUFILTERTYPE>(type));
    } else if (!hasTables()) {
        QZLOGW("filterGather '%s': unknown subType \"%s\"; no look", name.c_str(), subType.c_str());
    }
    _addNode(node);
}
