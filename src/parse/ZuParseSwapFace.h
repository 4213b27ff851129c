#pragma once

#include "parse/ZuParseDataEvent.h"

#include <rapidjson/document.h>

// A "swapface" item: the faces of persons 1 and 2 exchanged. It takes only
// the common keys. On the AS back end it makes a ZuSwapFaceASNode; the other
// back ends' swap nodes are made by their type names, and there the item
// makes nothing.
class ZuParseSwapFace : public ZuParseDataEvent {
public:
    explicit ZuParseSwapFace(ZuAppMain* app) : ZuParseDataEvent(app) {}

    static ZuParseData* parseSwapFace(ZuAppMain* app, const rapidjson::Value& value, int resUID, const char* sceneName,
                                      const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;
};
