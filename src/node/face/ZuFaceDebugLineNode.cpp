#include "node/face/ZuFaceDebugLineNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "render/material/ZuMaterial.h"

#include <GLES2/gl2.h>
#include <cmath>

ZuFaceDebugLineNode::ZuFaceDebugLineNode(ZuAppMain* app) : ZuFaceDebugNode(app, GL_LINES) {}

void ZuFaceDebugLineNode::zuinit() {
    ZuFaceDebugNode::zuinit();
    // Thin lines show exactly where the values lie.
    getMaterial()->setLineWidth(1.0f);
}

void ZuFaceDebugLineNode::update(float dt) {
    ZuNode::update(dt);
    drawnSegments = 0;
    ZuPersonSys* persons = personSys();
    if (!persons) return;
    float lines[ZuPersonSys::kPersonsPerScene * kMaxSegmentsPerFace * 4];
    for (int id = 1; id <= ZuPersonSys::kPersonsPerScene; ++id) {
        const ZuPerson* person = persons->getPerson(getSceneName().c_str(), id);
        // Only faces of the latest record: a person merely kept present
        // holds old data.
        if (!person || person->getExistState() != 1) continue;
        float* out = lines + drawnSegments * 4;
        const int n = faceSegments(person, out);
        bool finite = true;
        for (int k = 0; k < n * 4; ++k) finite = finite && std::isfinite(out[k]);
        if (n > 0 && n <= kMaxSegmentsPerFace && finite) drawnSegments += n;
    }
    setVertices(lines, drawnSegments * 2);
}
