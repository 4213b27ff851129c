#include "scene/ZuNodeTypes.h"

#include "node/ZuBackGroundExtTextureNode.h"
#include "node/ZuBackGroundNode.h"
#include "node/ZuBeauFilterNode.h"
#include "node/ZuBeautyNode.h"
#include "node/ZuBgRenderNode.h"
#include "node/ZuDataOutputScaleTexNode.h"
#include "node/ZuDataOutputTexNode.h"
#include "node/ZuDataTransNode.h"
#include "node/ZuFaceBeautifyExpand01Node.h"
#include "node/ZuFaceBeautifyNode.h"
#include "node/ZuFaceBuffingWhiteNode.h"
#include "node/ZuFaceAxis.h"
#include "node/ZuFacePointNode.h"
#include "node/ZuFaceRectNote.h"
#include "node/ZuFilter.h"
#include "node/ZuFilterMultiMaterial.h"
#include "node/ZuFilterNode.h"
#include "node/ZuFilterOutter.h"
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
    creator->registCreateFunc("ZuFacePointNode", zuCreateNodeOfType<ZuFacePointNode>);
    creator->registCreateFunc("ZuFaceRectNote", zuCreateNodeOfType<ZuFaceRectNote>);
    creator->registCreateFunc("ZuFaceAxis", zuCreateNodeOfType<ZuFaceAxis>);
    creator->registCreateFunc("ZuFilter", zuCreateNodeOfType<ZuFilter>);
    creator->registCreateFunc("ZuFilterOutter", zuCreateNodeOfType<ZuFilterOutter>);
    creator->registCreateFunc("ZuFilterMultiMaterial", zuCreateNodeOfType<ZuFilterMultiMaterial>);
    creator->registCreateFunc("ZuFilterNode", zuCreateNodeOfType<ZuFilterNode>);
    creator->registCreateFunc("ZuBeauFilterNode", zuCreateNodeOfType<ZuBeauFilterNode>);
    creator->registCreateFunc("ZuFaceBuffingWhiteNode", zuCreateNodeOfType<ZuFaceBuffingWhiteNode>);
    creator->registCreateFunc("ZuFaceBeautifyNode", zuCreateNodeOfType<ZuFaceBeautifyNode>);
    creator->registCreateFunc("ZuFaceBeautifyExpand01Node", zuCreateNodeOfType<ZuFaceBeautifyExpand01Node>);
    creator->registCreateFunc("ZuBeautyNode", zuCreateNodeOfType<ZuBeautyNode>);
}
