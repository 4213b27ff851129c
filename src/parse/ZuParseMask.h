#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "parse/ZuParseDataEvent.h"

#include <rapidjson/document.h>

class Zu2DFaceMaskNode;

// A "mask" item: a picture authored on the standard face and stretched over
// the live face. Its "subType" picks the node: "mask_show_self" shows the
// person's own face over what lies beneath, "mask_change_face" lays the face
// onto a stored target shape, anything else is the back end's 2D face mask,
// one per person (persons 1 to 4 when the item names none).
class ZuParseMask : public ZuParseDataEvent {
public:
    explicit ZuParseMask(ZuAppMain* app) : ZuParseDataEvent(app) {}

    // "images" (pictures inside the package, the last one is used) is
    // required for a plain mask; "typemesh" is kept.
    static ZuParseData* parseMask(ZuAppMain* app, const rapidjson::Value& value, int resUID, const char* sceneName,
                                  const char* directory);
    void generate(int newResUID, const char* sceneName, char* directory) override;

    qz::string typemesh = "default";
    qz::array<qz::string> images;

private:
    void createMaskNode(const char* typeName, const char* sceneName, int person);
    void createOverlay(const char* typeName, const char* nodeName, const char* sceneName);
};
