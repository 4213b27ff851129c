#pragma once

#include "core/ManualBoneOperator.h"

// Turns the bone by value.x radians about its yaw axis.
class ManualBoneOperator_yaw : public ManualBoneOperator {
public:
    using ManualBoneOperator::ManualBoneOperator;

protected:
    void apply(Bone* bone) override { bone->yaw(value.x, space); }
};
