#include "core/ManualBoneOperator.h"

#include "core/Skeleton.h"

void ManualBoneOperator::Operate(Skeleton* skeleton) {
    Bone* bone = skeleton ? skeleton->getBone(boneName) : nullptr;
    if (bone) apply(bone);
}
