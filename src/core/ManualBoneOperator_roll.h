#pragma once

#include "core/ManualBoneOperator.h"

// Turns the bone by value.x radians about its roll axis.
class ManualBoneOperator_roll : public ManualBoneOperator {
public:
    using ManualBoneOperator::ManualBoneOperator;

protected:
    void apply(Bone* bone) override { bone->roll(value.x, space); }
};
