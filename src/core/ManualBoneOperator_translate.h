#pragma once

#include "core/ManualBoneOperator.h"

// Moves the bone by value in its space.
class ManualBoneOperator_translate : public ManualBoneOperator {
public:
    using ManualBoneOperator::ManualBoneOperator;

protected:
    void apply(Bone* bone) override { bone->translate(value, space); }
};
