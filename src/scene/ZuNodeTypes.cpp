#include "scene/ZuNodeTypes.h"

#include "scene/ZuNodeCreator.h"
#include "scene/ZuTimeOutNode.h"

void registerBuiltinNodeTypes(ZuNodeCreator* creator) {
    creator->registCreateFunc("ZuTimeOutNode", zuCreateNodeOfType<ZuTimeOutNode>);
}
