#include "core/ZuOgreModel.h"

#include "core/ZuOgrePieceModel.h"

ZuOgreModel::ZuOgreModel() = default;
ZuOgreModel::~ZuOgreModel() = default;

ZuOgrePieceModel* ZuOgreModel::createPieceModel() {
    pieces.emplace_back(new ZuOgrePieceModel());
    return pieces.back().get();
}

bool ZuOgreModel::destroyPieceModel(ZuOgrePieceModel* piece) {
    for (auto it = pieces.begin(); it != pieces.end(); ++it) {
        if (it->get() == piece) {
            pieces.erase(it);
            return true;
        }
    }
    return false;
}

ZuOgrePieceModel* ZuOgreModel::getPieceModel(size_t index) const {
    return index < pieces.size() ? pieces[index].get() : nullptr;
}
