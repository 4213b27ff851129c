#include "scene/ZuActionScale.h"

#include "scene/ZuNode.h"

float ZuActionScale::s_scale = 1.0f;
float ZuActionScale::s_angle = 0.0f;

void ZuActionScale::run(ZuNode* node, float delta) {
    if (!node) return;
    node->setPositionX(300.0f, 500.0f, 0.0f);
    s_scale -= 0.005f;
    if (s_scale < 0.1f) s_scale = 0.1f;
    node->setScaleX(s_scale, s_scale, s_scale);
    s_angle += 2.0f;
    if (s_angle > 360.0f) s_angle = 0.0f;
    node->setRotationX(node->getRotationX(), node->getRotationY(), s_angle);
}
