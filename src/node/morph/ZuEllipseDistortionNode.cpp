#include "node/morph/ZuEllipseDistortionNode.h"

#include "node/morph/ZuEnlargeEllipseMaterial.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonTracker.h"
#include "platform/ZuLog.h"

#include <cmath>

ZuEllipseDistortionNode::ZuEllipseDistortionNode(ZuAppMain* app) : ZuDistortionNode(app) {
    setType("ZuEllipseDistortionNode");
}

ZuAotuMirror* ZuEllipseDistortionNode::makeMaterial() { return new ZuEnlargeEllipseMaterial(app); }

ZuEnlargeEllipseMaterial* ZuEllipseDistortionNode::getMaterial() const {
    return static_cast<ZuEnlargeEllipseMaterial*>(material);
}

float ZuEllipseDistortionNode::checkedRadius(float value, const char* what) const {
    if (value >= 0.0f && std::isfinite(value)) return value;
    QZLOGW("ZuEllipseDistortionNode '%s': %s %g is not a size; no lens", getname().c_str(), what, value);
    return 0.0f;
}

void ZuEllipseDistortionNode::setradiusx(float value) { radiusX = checkedRadius(value, "radius x"); }
void ZuEllipseDistortionNode::setradiusy(float value) { radiusY = checkedRadius(value, "radius y"); }

void ZuEllipseDistortionNode::placeLens(ZuPerson* person, ZuDetectBase* detect) {
    float x, y;
    ZuPersonTracker* tracker = person->getTracker();
    if (!tracker || !boundPoint(person, detect, x, y)) return;
    float size = region == 0 ? tracker->leftEyeAxisDistance
                             : (region == 1 ? tracker->rightEyeAxisDistance : tracker->eyeDistanceCopy);
    float a = radiusX * size, b = radiusY * size;
    // The focal distance along the eye line. A y radius above the x radius
    // puts the foci further apart than the x radius reaches and the lens
    // vanishes: packages give the wider radius in x.
    float c = std::sqrt(std::fabs(a * a - b * b));
    ZuEnlargeEllipseMaterial* lens = getMaterial();
    lens->setRadius(a);
    lens->setPos(x, y);
    lens->setPosL(x - tracker->xAxis.x * c, y - tracker->xAxis.y * c);
    lens->setPosR(x + tracker->xAxis.x * c, y + tracker->xAxis.y * c);
}
