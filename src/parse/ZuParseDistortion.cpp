#include "parse/ZuParseDistortion.h"

#include "basesys/ZuGBase.h"
#include "node/morph/ZuCircleDistortionNode.h"
#include "node/morph/ZuEllipseDistortionNode.h"
#include "parse/ZuItemText.h"
#include "parse/ZuParse.h"
#include "platform/ZuLog.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

#include <cmath>

ZuParseData* ZuParseDistortion::parseDistortion(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                                const char* directory) {
    if (!value.IsObject()) return nullptr;
    float index = 0, intensity = 0, radiusX = 0, radiusY = 0, angle = 0;
    bool ok = ZuItemText::number(value, "index", directory, index, true);
    ok = ZuItemText::number(value, "intensity", directory, intensity, true) && ok;
    ok = ZuItemText::number(value, "radius_x", directory, radiusX, true) && ok;
    ok = ZuItemText::number(value, "radius_y", directory, radiusY, true) && ok;
    ZuItemText::number(value, "disappearAngle", directory, angle);
    // "index" counts tenths of a landmark: 130 is landmark 13, 9 landmark 0.
    int landmark = index >= 0.0f && index < 410.0f ? static_cast<int>(static_cast<int>(index) * 0.1) : -1;
    if (ok && landmark < 0) {
        QZLOGW("package %s, item '%s': \"index\" %g names no standard landmark (0..400); no lens",
               directory ? directory : "", ZuItemText::idOf(value), index);
        ok = false;
    }
    if (!ok) {
        QZLOGW("package %s, item '%s': distortion skipped", directory ? directory : "", ZuItemText::idOf(value));
        return nullptr;
    }
    ZuParseDistortion* data = new ZuParseDistortion(app);
    ZuParse::parseBase(data, value, directory);
    data->bindIndex = landmark;
    data->intensity = intensity;
    data->radiusX = radiusX;
    data->radiusY = radiusY;
    data->disappearAngle = static_cast<int>(std::fmax(-3600.0f, std::fmin(angle, 3600.0f)));
    return data;
}

bool ZuParseDistortion::isCircle() const { return std::fabs(radiusX - radiusY) < 0.01f; }

void ZuParseDistortion::generate(int newResUID, const char* sceneName, char*) {
    resUID = newResUID;
    ZuNodeMgr* nodeMgr = ZuGBase::nodeMgrOf(app);
    if (!nodeMgr || !nodeMgr->getCreator()) return;
    if (personID < 0 || personID > 4) {
        QZLOGW("distortion '%s': person %d is none of 1..4; no lens", name.c_str(), personID);
        return;
    }
    int first = personID == 0 ? 1 : personID, last = personID == 0 ? 4 : personID;
    for (int person = first; person <= last; ++person) {
        auto* node = dynamic_cast<ZuDistortionNode*>(nodeMgr->getCreator()->createNodeAsync(
            isCircle() ? "ZuCircleDistortionNode" : "ZuEllipseDistortionNode", sceneName, name.c_str(), person,
            resUID));
        if (!node) return;
        node->setresUID(resUID);
        node->setpersonID(person);
        node->setbindIndex(bindIndex);
        node->setintensity(intensity);
        if (auto* circle = dynamic_cast<ZuCircleDistortionNode*>(node)) {
            circle->setradius(radiusX);
        } else if (auto* ellipse = dynamic_cast<ZuEllipseDistortionNode*>(node)) {
            ellipse->setradiusx(radiusX);
            ellipse->setradiusy(radiusY);
        }
        node->setZOrder(order);
        _addNode(node);
    }
}
