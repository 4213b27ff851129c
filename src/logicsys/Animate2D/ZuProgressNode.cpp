#include "logicsys/Animate2D/ZuProgressNode.h"

ZuProgressNode::ZuProgressNode(ZuAppMain* app) : ZuAniSpineNode(app) {
    setType("ZuProgressNode");
    setStreamType(20);
    setRenderOrder(20);
    isScreen = true;
}

void ZuProgressNode::update(float delta) {
    if (!isVisible() || !isScreen) return;
    ZuNode::update(delta);
    if (!spine) return;
    if (state != STATE_PLAYING) {
        spine->resetAnimate();
        duration = spine->getAnimationDuration(getCurrentActName().c_str());
        shownTime = 0.0f;
        sendResetTimeStateEvent(1);
        state = STATE_PLAYING;
    }
    setProgress(progress);
}

void ZuProgressNode::setProgress(float value) {
    if (!spine) return;
    // Zero redraws the pose as it stands, with no time passing.
    if (value == 0.0f) {
        advance(0.0f);
        return;
    }
    if (value > maximum) return;
    progress = value;
    const float target = duration / maximum * value;
    const float delta = target - shownTime;
    shownTime = target;
    advance(delta * 0.001f);
}
