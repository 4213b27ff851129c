#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class ZuNode;
class ZuNodeMgr;

typedef ZuNode* (*ZuNodeCreateFunc)(ZuAppMain* app);

// Makes nodes from their type names, as packages and host calls name them.
// A new node is initialised and handed to the node manager, which keeps the
// owning reference; it is not yet in any tree.
class ZuNodeCreator : public ZuGBase {
public:
    ZuNodeCreator(ZuAppMain* app, ZuNodeMgr* owner) : ZuGBase(app), owner(owner) {}

    // Registers every node type the engine has.
    void init();
    void destroy() { funcs.clear(); }

    // An existing entry stays: false then.
    bool registCreateFunc(const char* typeName, ZuNodeCreateFunc func);
    void unregistCreateFunc(const char* typeName);
    bool hasType(const char* typeName) const;

    // Null for an unknown type or a failed construction.
    ZuNode* createNode(const char* typeName, const char* sceneName, const char* nodeName);
    // Named sceneName_nodeName_a_resUID, with the resUID set before zuinit.
    ZuNode* createNodeAsync(const char* typeName, const char* sceneName, const char* nodeName, int a, int resUID);
    // Without a scene; named after its uid + "_ex".
    ZuNode* createNodeEx(const char* typeName);

private:
    ZuNode* construct(const char* typeName);
    ZuNode* finish(ZuNode* node);

    ZuNodeMgr* owner;
    qz::map<qz::string, ZuNodeCreateFunc> funcs;
};
