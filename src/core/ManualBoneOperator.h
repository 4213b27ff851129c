#pragma once

#include "core/Bone.h"

#include <string>

class Skeleton;

// A bone move queued by a node for the next skeleton update; does nothing
// when the skeleton has no bone of that name. Subclasses say which move.
class ManualBoneOperator {
public:
    ManualBoneOperator(const std::string& bone, const ZuVec3& value, Bone::TransformSpace space)
        : boneName(bone), value(value), space(space) {}
    virtual ~ManualBoneOperator() = default;
    void Operate(Skeleton* skeleton);

protected:
    virtual void apply(Bone* bone) = 0;

    std::string boneName;
    ZuVec3 value;
    Bone::TransformSpace space;
};
