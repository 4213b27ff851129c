#include "render/material/ZuMatSet.h"

#include "render/material/MatIndex.h"
#include "render/math/ZuMat4.h"

ZuMatSet::~ZuMatSet() {
    for (auto it = entries.getIterator(); !it.atEnd(); ++it) delete it->getValue();
    entries.clear();
    delete defaultEntry;
}

MatIndex* ZuMatSet::find(const char* name) const {
    if (!name) return nullptr;
    auto* node = entries.find(qz::string(name));
    return node ? node->getValue() : nullptr;
}

void ZuMatSet::setMat(const char* name, const ZuMat4& matrix, bool visible) {
    if (!name) return;
    MatIndex* entry = find(name);
    if (!entry) {
        entry = new MatIndex();
        entries.insert(qz::string(name), entry);
    }
    entry->setMatrix(new ZuMat4(matrix));
    entry->setVisible(visible);
}

void ZuMatSet::setDefault(const ZuMat4& matrix) {
    if (!defaultEntry) defaultEntry = new MatIndex();
    defaultEntry->setMatrix(new ZuMat4(matrix));
}

const float* ZuMatSet::getMatData(const char* name) const {
    MatIndex* entry = find(name);
    if (entry && entry->getMatrix()) return entry->getMatrix()->data();
    if (defaultEntry && defaultEntry->getMatrix()) return defaultEntry->getMatrix()->data();
    return nullptr;
}

bool ZuMatSet::getVisible(const char* name) const {
    MatIndex* entry = find(name);
    return entry ? entry->getVisible() : true;
}
