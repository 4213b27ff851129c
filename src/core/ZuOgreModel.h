#pragma once

#include <memory>
#include <vector>

class ZuOgrePieceModel;

// The piece models of a node that shows several meshes, owned here.
class ZuOgreModel {
public:
    ZuOgreModel();
    ~ZuOgreModel();
    ZuOgreModel(const ZuOgreModel&) = delete;
    ZuOgreModel& operator=(const ZuOgreModel&) = delete;

    ZuOgrePieceModel* createPieceModel();
    // Deletes one piece model; false when it isn't one of these.
    bool destroyPieceModel(ZuOgrePieceModel* piece);
    size_t getPieceModelCount() const { return pieces.size(); }
    ZuOgrePieceModel* getPieceModel(size_t index) const;

private:
    std::vector<std::unique_ptr<ZuOgrePieceModel>> pieces;
};
