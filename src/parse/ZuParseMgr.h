#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzArray.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"
#include "logicsys/Animate2D/ZuSkeletonPool.h"

#include <rapidjson/document.h>

class ZuParseData;
struct SpineHeadRes;

// A parse function reads one item into a new ZuParseData (count 1) or
// gives null. It may run on the load thread: it touches neither GL nor the
// scene graph.
typedef ZuParseData* (*ZuParseFunc)(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                    const char* sceneName, const char* directory);

// Reads an effect package's "config.json" and hands each item to the parser
// of its "type"; what they return is built on the render thread.
class ZuParseMgr : public ZuGBase {
public:
    explicit ZuParseMgr(ZuAppMain* app) : ZuGBase(app) {}

    // Registers the item types, those of switched-off families excepted.
    void init();
    void destroy() {
        dictionary.clear();
        skeletons.clearSkeleton();
    }

    // Ignored when the name is taken.
    void registDictionary(const char* typeName, ZuParseFunc func);
    void unregistDictionary(const char* typeName);
    bool hasRegist(const char* typeName) const;

    // True when the file was read and parsed, whatever its items did.
    bool parse(const char* path, int resUID, const char* sceneName);
    // Head pictures become named textures; the array is emptied.
    void parseTexHeadStream(qz::array<SpineHeadRes>* heads);
    // Parsed skeletons shared by the stickers of this engine.
    ZuSkeletonPool& getSkeletonPool() { return skeletons; }

private:
    void _parseCommon(const rapidjson::Value& item, int resUID, const char* sceneName, const char* directory);
    void _callTypeParse(const char* type, const rapidjson::Value& value, int resUID, const char* sceneName,
                        const char* directory);
    void _parseExitMode(const rapidjson::Value& value);

    qz::map<qz::string, ZuParseFunc> dictionary;
    ZuSkeletonPool skeletons;
};
