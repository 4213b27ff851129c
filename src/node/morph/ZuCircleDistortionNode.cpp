#include "node/morph/ZuCircleDistortionNode.h"

#include "node/morph/ZuEnlargeEyeMaterial.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonTracker.h"
#include "platform/ZuLog.h"

#include <cmath>

ZuCircleDistortionNode::ZuCircleDistortionNode(ZuAppMain* app) : ZuDistortionNode(app) {
    setType("ZuCircleDistortionNode");
}

ZuAotuMirror* ZuCircleDistortionNode::makeMaterial() { return new ZuEnlargeEyeMaterial(app); }

ZuEnlargeEyeMaterial* ZuCircleDistortionNode::getMaterial() const {
    return static_cast<ZuEnlargeEyeMaterial*>(material);
}

void ZuCircleDistortionNode::setradius(float value) {
    if (!(value >= 0.0f) || !std::isfinite(value)) {
        QZLOGW("ZuCircleDistortionNode '%s': radius %g is not a size; no lens", getname().c_str(), value);
        value = 0.0f;
    }
    radius = value;
}

void ZuCircleDistortionNode::placeLens(ZuPerson* person, ZuDetectBase* detect) {
    float x, y;
    if (!boundPoint(person, detect, x, y)) return;
    getMaterial()->setCentralPos(x, y);
    ZuPersonTracker* tracker = person->getTracker();
    material->setRadius(tracker ? radius * tracker->eyeDistanceCopy : 0.0f);
}
