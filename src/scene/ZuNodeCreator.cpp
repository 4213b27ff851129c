#include "scene/ZuNodeCreator.h"

#include "scene/ZuNode.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuNodeTypes.h"

#include <cstdio>

void ZuNodeCreator::init() {
    funcs.clear();
    registerBuiltinNodeTypes(this);
}

bool ZuNodeCreator::registCreateFunc(const char* typeName, ZuNodeCreateFunc func) {
    if (!typeName || !func) return false;
    return funcs.insert(qz::string(typeName), func);
}

void ZuNodeCreator::unregistCreateFunc(const char* typeName) {
    if (typeName) funcs.remove(qz::string(typeName));
}

bool ZuNodeCreator::hasType(const char* typeName) const {
    return typeName && funcs.find(qz::string(typeName));
}

ZuNode* ZuNodeCreator::construct(const char* typeName) {
    if (!typeName) return nullptr;
    auto* entry = funcs.find(qz::string(typeName));
    return entry ? entry->getValue()(app) : nullptr;
}

// zuinit, testinit, then the manager takes the only reference.
ZuNode* ZuNodeCreator::finish(ZuNode* node) {
    node->zuinit();
    node->testinit();
    if (owner) owner->addNode(node);
    node->release();
    return node;
}

ZuNode* ZuNodeCreator::createNode(const char* typeName, const char* sceneName, const char* nodeName) {
    ZuNode* node = construct(typeName);
    if (!node) return nullptr;
    node->setSceneName(sceneName ? sceneName : "");
    node->setname(nodeName ? nodeName : "");
    return finish(node);
}

ZuNode* ZuNodeCreator::createNodeAsync(const char* typeName, const char* sceneName, const char* nodeName, int a,
                                       int resUID) {
    ZuNode* node = construct(typeName);
    if (!node) return nullptr;
    char numbers[32];
    snprintf(numbers, sizeof numbers, "_%d_%d", a, resUID);
    qz::string name(sceneName ? sceneName : "");
    name += "_";
    name += nodeName ? nodeName : "";
    name += numbers;
    node->setSceneName(sceneName ? sceneName : "");
    node->setname(name.c_str());
    node->setresUID(resUID);
    return finish(node);
}

ZuNode* ZuNodeCreator::createNodeEx(const char* typeName) {
    ZuNode* node = construct(typeName);
    if (!node) return nullptr;
    char name[32];
    snprintf(name, sizeof name, "%d_ex", node->getuid());
    node->setname(name);
    return finish(node);
}
