#pragma once

#include "core/ManualBoneOperator.h"

// Multiplies the bone's scale by value.
class ManualBoneOperator_scale : public ManualBoneOperator {
public:
    using ManualBoneOperator::ManualBoneOperator;

protected:
    void apply(Bone* bone) override { bone->scale(value); }
};
