#pragma once

class ZuAppMain;
class ZuNode;
class ZuNodeCreator;

// The node types that packages and operations may name. Each node class
// joins this list in ZuNodeTypes.cpp when it is written.
void registerBuiltinNodeTypes(ZuNodeCreator* creator);

template <typename T>
ZuNode* zuCreateNodeOfType(ZuAppMain* app) {
    return new T(app);
}
