#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzArray.h"
#include "basesys/qzString.h"

class ZuNode;

// What one item of a package asks to build, read from its JSON on any
// thread. generate() builds the nodes on the render thread; suspend() hangs
// them under the package's root in the scene.
class ZuParseData : public ZuGBase {
public:
    explicit ZuParseData(ZuAppMain* app) : ZuGBase(app) {}
    // Releases nodes that were built but never hung in a scene.
    ~ZuParseData() override;

    // The base forms only store resUID; items override the directory form.
    virtual void generate(int newResUID, const char* sceneName);
    virtual void generate(int newResUID, const char* sceneName, char* directory);
    virtual void generate(int newResUID, const char* sceneName, char* directory, char* extra);
    virtual void suspend(const char* sceneName);

    // Wraps data in a ZuOperateGenerate for the render thread and gives up
    // the caller's reference.
    static void generate(ZuAppMain* app, ZuParseData* data, const char* sceneName, int resUID,
                         const char* directory);

    qz::string name;
    qz::string id;
    qz::string type;
    qz::string subType;
    int personID = 0;
    qz::string resourceType;
    int loop = 0;
    int reactState = 0;
    int resUID = -1;
    int order = 0;

    const qz::array<ZuNode*>& getNodes() const { return nodes; }

protected:
    // Keeps a built node (retained) for suspend.
    void _addNode(ZuNode* node);

    qz::array<ZuNode*> nodes;
};
