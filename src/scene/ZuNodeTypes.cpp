#include "scene/ZuNodeTypes.h"

#include "node/camera/ZuBackGroundExtTextureNode.h"
#include "node/camera/ZuBackGroundNode.h"
#include "node/filter/ZuBeauFilterNode.h"
#include "node/beauty/ZuBeautyNode.h"
#include "node/camera/ZuBgRenderNode.h"
#include "node/output/ZuDataOutputScaleTexNode.h"
#include "node/output/ZuDataOutputTexNode.h"
#include "node/output/ZuDataTransNode.h"
#include "node/beauty/ZuFaceBeautifyExpand01Node.h"
#include "node/beauty/ZuFaceBeautifyNode.h"
#include "node/beauty/ZuFaceBuffingWhiteNode.h"
#include "node/face/ZuFaceAxis.h"
#include "node/face/ZuFacePointNode.h"
#include "node/face/ZuFaceRectNote.h"
#include "node/filter/ZuFilter.h"
#include "node/filter/ZuFilterMultiMaterial.h"
#include "node/filter/ZuFilterNode.h"
#include "node/filter/ZuFilterOutter.h"
#include "particle/ZuParticleNode.h"
#include "node/output/ZuIconNode.h"
#include "node/output/ZuInputFboRenderNode.h"
#include "node/camera/ZuSeparationBackgroundExtTextureNode.h"
#include "node/camera/ZuSeparationBackgroundNode.h"
#include "logicsys/Animate2D/ZuAniFrameNode.h"
#include "logicsys/Animate2D/ZuBMFontNode.h"
#include "logicsys/Animate2D/ZuBitFontNode.h"
#include "logicsys/Animate2D/ZuScreenAnimateNode.h"
#include "logicsys/Animate2D/ZuSpriteNode.h"
#include "logicsys/Animate2D/ZuTexAniNode.h"
#include "node/sound/ZuSoundNode.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuScene.h"
#include "scene/ZuTimeOutNode.h"
#include "node/morph/ZuCircleDistortionNode.h"
#include "node/morph/ZuEllipseDistortionNode.h"

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
    creator->registCreateFunc("ZuAniFrameNode", zuCreateNodeOfType<ZuAniFrameNode>);
    creator->registCreateFunc("ZuSpriteNode", zuCreateNodeOfType<ZuSpriteNode>);
    creator->registCreateFunc("ZuBitFontNode", zuCreateNodeOfType<ZuBitFontNode>);
    creator->registCreateFunc("ZuBMFontNode", zuCreateNodeOfType<ZuBMFontNode>);
    creator->registCreateFunc("ZuTexAniNode", zuCreateNodeOfType<ZuTexAniNode>);
    creator->registCreateFunc("ZuScreenAnimateNode", zuCreateNodeOfType<ZuScreenAnimateNode>);
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
    creator->registCreateFunc("ZuParticleNode", zuCreateNodeOfType<ZuParticleNode>);
    // Face reshaping: lenses.
    creator->registCreateFunc("ZuCircleDistortionNode", zuCreateNodeOfType<ZuCircleDistortionNode>);
    creator->registCreateFunc("ZuEllipseDistortionNode", zuCreateNodeOfType<ZuEllipseDistortionNode>);
}
