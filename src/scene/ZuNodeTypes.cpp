#include "scene/ZuNodeTypes.h"

#include "node/ZuBackGroundExtTextureNode.h"
#include "node/ZuBackGroundNode.h"
#include "node/ZuBgRenderNode.h"
#include "node/ZuDataOutputScaleTexNode.h"
#include "node/ZuDataOutputTexNode.h"
#include "node/ZuDataTransNode.h"
#include "node/ZuIconNode.h"
#include "node/ZuInputFboRenderNode.h"
#include "node/ZuSeparationBackgroundExtTextureNode.h"
#include "node/ZuSeparationBackgroundNode.h"
#include "node/ZuSoundNode.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuScene.h"
#include "scene/ZuTimeOutNode.h"

void registerBuiltinNodeTypes(ZuNodeCreator* creator) {
    creator->registCreateFunc("ZuScene", zuCreateNodeOfType<ZuScene>);
    creator->registCreateFunc("ZuTimeOutNode", zuCreateNodeOfType<ZuTimeOutNode>);
    creator->registCreateFunc("ZuBackGroundNode", zuCreateNodeOfType<ZuBackGroundNode>);
    creator->registCreateFunc("ZuBgRenderNode", zuCreateNodeOfType<ZuBgRenderNode>);
    creator->registCreateFunc("ZuBackGroundExtTextureNode", zuCreateNodeOfType<ZuBackGroundExtTextureNode>);
    creator->registCreateFunc("ZuSeparationBackgroundNode", zuCreateNodeOfType<ZuSeparationBackgroundNode>);
    creator->registCreateFunc("ZuSeparationBackgroundExtTextureNode",
                              zuCreateNodeOfType<ZuSeparationBackgroundExtTextureNode>);
    creator->registCreateFunc("ZuInputFboRenderNode", zuCreateNodeOfType<ZuInputFboRenderNode>);
    creator->registCreateFunc("ZuDataTransNode", zuCreateNodeOfType<ZuDataTransNode>);
    creator->registCreateFunc("ZuDataOutputTexNode", zuCreateNodeOfType<ZuDataOutputTexNode>);
    creator->registCreateFunc("ZuDataOutputScaleTexNode", zuCreateNodeOfType<ZuDataOutputScaleTexNode>);
    creator->registCreateFunc("ZuIconNode", zuCreateNodeOfType<ZuIconNode>);
    creator->registCreateFunc("ZuSoundNode", zuCreateNodeOfType<ZuSoundNode>);
}
