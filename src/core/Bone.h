#pragma once

#include "core/ZuMatrix4.h"

#include <cstdint>
#include <map>
#include <string>

class Skeleton;

// One joint of a skeleton: a local transform under its parent, the derived
// transform in skeleton space (cached, refreshed on demand) and the inverse
// of the binding pose, which turns a vertex from model space into bone space.
class Bone {
public:
    enum TransformSpace { TS_LOCAL = 0, TS_PARENT = 1, TS_WORLD = 2 };

    Bone(const std::string& name, uint16_t handle, Skeleton* owner)
        : name(name), handle(handle), creator(owner) {}
    virtual ~Bone() = default;

    virtual void translate(const ZuVec3& d, TransformSpace space = TS_PARENT);
    void rotate(const ZuQuaternion& q, TransformSpace space = TS_LOCAL);
    // Angles in radians.
    void yaw(float angle, TransformSpace space = TS_LOCAL);
    void pitch(float angle, TransformSpace space = TS_LOCAL);
    void roll(float angle, TransformSpace space = TS_LOCAL);
    void scale(const ZuVec3& s);

    void setPosition(const ZuVec3& p);
    void setOrientation(const ZuQuaternion& q);
    void setScale(const ZuVec3& s);
    const ZuVec3& getPosition() const { return position; }
    const ZuQuaternion& getOrientation() const { return orientation; }
    const ZuVec3& getScale() const { return scaleValue; }

    void addChild(Bone* child);
    Bone* getParent() const { return parent; }
    const std::map<std::string, Bone*>& getChildren() const { return children; }
    const std::string& getName() const { return name; }
    uint16_t getHandle() const { return handle; }

    // The current local transform becomes the initial state; the inverse of
    // the derived transform is kept as the binding pose.
    void setBindingPose();
    // Back to the initial state.
    void reset();
    void setManuallyControlled(bool manual) { manuallyControlled = manual; }
    bool isManuallyControlled() const { return manuallyControlled; }

    const ZuVec3& _getDerivedPosition();
    const ZuQuaternion& _getDerivedOrientation();
    const ZuVec3& _getDerivedScale();
    void _update(bool updateChildren, bool parentHasChanged);
    // The matrix from binding-pose model space to the current pose.
    ZuMatrix4 _getOffsetTransform();
    void needUpdate();

    static ZuQuaternion inverse(const ZuQuaternion& q);

private:
    void updateFromParent();
    void requestUpdate(Bone* child);

    std::string name;
    uint16_t handle;
    Skeleton* creator;
    Bone* parent = nullptr;
    std::map<std::string, Bone*> children;
    std::map<std::string, Bone*> childrenToUpdate;

    ZuVec3 position{0.0f, 0.0f, 0.0f};
    ZuQuaternion orientation;
    ZuVec3 scaleValue{1.0f, 1.0f, 1.0f};
    ZuVec3 initialPosition{0.0f, 0.0f, 0.0f};
    ZuQuaternion initialOrientation;
    ZuVec3 initialScale{1.0f, 1.0f, 1.0f};

    ZuVec3 derivedPosition{0.0f, 0.0f, 0.0f};
    ZuQuaternion derivedOrientation;
    ZuVec3 derivedScale{1.0f, 1.0f, 1.0f};

    ZuVec3 bindInversePosition{0.0f, 0.0f, 0.0f};
    ZuQuaternion bindInverseOrientation;
    ZuVec3 bindInverseScale{1.0f, 1.0f, 1.0f};

    bool needParentUpdate = true;
    bool needChildUpdate = false;
    bool parentNotified = false;
    bool manuallyControlled = false;
};
