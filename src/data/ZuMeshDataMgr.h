#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

struct FaceMesh;
struct StanderFace;

// The static face data every mesh-based effect shares: triangle lists over
// each back end's landmarks and the standard faces effects are authored
// against, read once at start from "shader/mesh/<name>.json". Filled during
// init and only read afterwards, so readers take no lock.
class ZuMeshDataMgr : public ZuGBase {
public:
    static constexpr const char* kMeshDir = "shader/mesh/";

    explicit ZuMeshDataMgr(ZuAppMain* app);
    ~ZuMeshDataMgr() override;

    // Loads every known mesh and standard face; a missing or broken file
    // leaves its name absent.
    void init();
    void destory();

    // One file each, by name without directory or ".json". False (and
    // logged) when the file is missing or refused.
    bool loadFaceMesh(const char* name);
    bool loadStanderFace(const char* name);

    // Null when the name was not loaded. The record stays the manager's.
    const FaceMesh* getFaceMesh(const char* name) const;
    const StanderFace* getStanderFace(const char* name) const;

private:
    // The file's text, or false when it cannot be read.
    bool readFile(const char* name, qz::string* text) const;

    qz::map<qz::string, StanderFace*> standerFaces;
    qz::map<qz::string, FaceMesh*> faceMeshes;
};
