#include "node/filter/ZuAlphaMattingNode.h"

#include "node/filter/ZuAlphaMattingMaterial.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"

ZuAlphaMattingNode::ZuAlphaMattingNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuAlphaMattingNode"); }

ZuAlphaMattingNode::~ZuAlphaMattingNode() { qzSafeRelease(material); }

void ZuAlphaMattingNode::zuinit() {
    ZuFilter::zuinit();
    if (!material) material = new ZuAlphaMattingMaterial(app);
    material->setTexcoordFlip(1.0f, 1.0f);
}

void ZuAlphaMattingNode::zudestroy() {
    ZuFilter::zudestroy();
    qzSafeRelease(material);
}

void ZuAlphaMattingNode::update(float dt) {
    ZuFilter::update(dt);
    bindPicture(material);
}

bool ZuAlphaMattingNode::personPresent() const {
    ZuPersonSys* persons = personSys();
    ZuPerson* person = persons ? persons->getPerson(getSceneName().c_str(), getpersonID()) : nullptr;
    return person && person->getExist();
}

void ZuAlphaMattingNode::render() {
    if (!isVisible() || !material || !getActiveScene() || !personPresent()) return;
    pushPass(RS_FILTER, "ZuAlphaMattingNode swap", "ZuAlphaMattingNode render");
}
