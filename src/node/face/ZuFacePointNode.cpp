#include "node/face/ZuFacePointNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "platform/ZuLog.h"
#include "render/material/ZuMaterial.h"

#include <GLES2/gl2.h>

ZuFacePointNode::ZuFacePointNode(ZuAppMain* app) : ZuFaceDebugNode(app, GL_POINTS) { setType("ZuFacePointNode"); }

void ZuFacePointNode::zuinit() {
    ZuFaceDebugNode::zuinit();
    getMaterial()->setPointSize(pointSize);
}

void ZuFacePointNode::setPointSize(float pixels) {
    if (!(pixels >= 1.0f && pixels <= 64.0f)) {
        QZLOGW("face point node %s: point size %g refused (1 to 64)", m_name.c_str(), pixels);
        return;
    }
    pointSize = pixels;
    if (getMaterial()) getMaterial()->setPointSize(pixels);
}

int ZuFacePointNode::collectPoints(float* positions, int capacity) const {
    ZuPersonSys* persons = personSys();
    if (!persons) return 0;
    int count = 0;
    for (int id = 1; id <= ZuPersonSys::kPersonsPerScene; ++id) {
        ZuPerson* person = persons->getPerson(getSceneName().c_str(), id);
        // Only faces of the latest record: a person merely kept present
        // holds old landmarks.
        if (!person || person->getExistState() != 1) continue;
        const float* face = person->getFaceData();
        const int n = person->getFacePtNum();
        for (int i = 0; i < n && count < capacity; ++i, ++count) {
            positions[2 * count] = face[2 * i];
            positions[2 * count + 1] = face[2 * i + 1];
        }
    }
    return count;
}

void ZuFacePointNode::update(float dt) {
    ZuNode::update(dt);
    static_assert(kCapacity >= ZuPersonSys::kPersonsPerScene * ZuPerson::kMaxFaceValues,
                  "room for every landmark of every person of a scene");
    drawnPoints = collectPoints(positions, kCapacity);
    setVertices(positions, drawnPoints);
}
