#pragma once

#include "core/ManualBoneOperator.h"

// Turns the bone by value.x radians about its pitch axis.
class ManualBoneOperator_pitch : public ManualBoneOperator {
public:
    using ManualBoneOperator::ManualBoneOperator;

protected:
    void apply(Bone* bone) override { bone->pitch(value.x, space); }
};
