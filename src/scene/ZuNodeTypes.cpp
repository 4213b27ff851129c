#include "scene/ZuNodeTypes.h"

#include "scene/ZuNodeCreator.h"
#include "scene/ZuScene.h"
#include "scene/ZuTimeOutNode.h"

void registerBuiltinNodeTypes(ZuNodeCreator* creator) {
    creator->registCreateFunc("ZuScene", zuCreateNodeOfType<ZuScene>);
    creator->registCreateFunc("ZuTimeOutNode", zuCreateNodeOfType<ZuTimeOutNode>);
}
