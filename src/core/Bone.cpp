#include "core/Bone.h"

#include <cmath>

namespace {
ZuVec3 mul(const ZuVec3& a, const ZuVec3& b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }
ZuVec3 div(const ZuVec3& a, const ZuVec3& b) { return {a.x / b.x, a.y / b.y, a.z / b.z}; }
// Rotation of v by q without the engine's degree-based helpers.
ZuVec3 rotateBy(const ZuQuaternion& q, const ZuVec3& v) {
    ZuVec3 u(q.x, q.y, q.z);
    ZuVec3 uv = u.cross(v);
    ZuVec3 uuv = u.cross(uv);
    return v + uv * (2.0f * q.w) + uuv * 2.0f;
}
ZuQuaternion axisRadians(float angle, float x, float y, float z) {
    float h = 0.5f * angle;
    float s = std::sin(h);
    return ZuQuaternion(std::cos(h), x * s, y * s, z * s);
}
} // namespace

ZuQuaternion Bone::inverse(const ZuQuaternion& q) {
    float norm = q.w * q.w + q.x * q.x + q.y * q.y + q.z * q.z;
    if (norm <= 0.0f) return ZuQuaternion(0.0f, 0.0f, 0.0f, 0.0f);
    float inv = 1.0f / norm;
    return ZuQuaternion(q.w * inv, -q.x * inv, -q.y * inv, -q.z * inv);
}

void Bone::translate(const ZuVec3& d, TransformSpace space) {
    switch (space) {
    case TS_LOCAL:
        position += rotateBy(orientation, d);
        break;
    case TS_WORLD:
        if (parent) position += div(rotateBy(inverse(parent->_getDerivedOrientation()), d), parent->_getDerivedScale());
        else position += d;
        break;
    case TS_PARENT:
        position += d;
        break;
    }
    needUpdate();
}

void Bone::rotate(const ZuQuaternion& q, TransformSpace space) {
    ZuQuaternion qn = q.normalized();
    switch (space) {
    case TS_PARENT:
        orientation = qn * orientation;
        break;
    case TS_WORLD:
        orientation = orientation * inverse(_getDerivedOrientation()) * qn * _getDerivedOrientation();
        break;
    case TS_LOCAL:
        orientation = orientation * qn;
        break;
    }
    needUpdate();
}

void Bone::yaw(float angle, TransformSpace space) { rotate(axisRadians(angle, 0, 1, 0), space); }
void Bone::pitch(float angle, TransformSpace space) { rotate(axisRadians(angle, 1, 0, 0), space); }
void Bone::roll(float angle, TransformSpace space) { rotate(axisRadians(angle, 0, 0, 1), space); }

void Bone::scale(const ZuVec3& s) {
    scaleValue = mul(scaleValue, s);
    needUpdate();
}

void Bone::setPosition(const ZuVec3& p) {
    position = p;
    needUpdate();
}

void Bone::setOrientation(const ZuQuaternion& q) {
    // Kept as given: a file's orientation reads back bit for bit.
    orientation = q;
    needUpdate();
}

void Bone::setScale(const ZuVec3& s) {
    scaleValue = s;
    needUpdate();
}

void Bone::addChild(Bone* child) {
    if (!child || child == this) return;
    if (child->parent) child->parent->children.erase(child->name);
    children[child->name] = child;
    child->parent = this;
    child->needUpdate();
}

void Bone::setBindingPose() {
    initialPosition = position;
    initialOrientation = orientation;
    initialScale = scaleValue;
    bindInversePosition = _getDerivedPosition() * -1.0f;
    bindInverseScale = div(ZuVec3(1.0f, 1.0f, 1.0f), _getDerivedScale());
    bindInverseOrientation = inverse(_getDerivedOrientation());
}

void Bone::reset() {
    position = initialPosition;
    orientation = initialOrientation;
    scaleValue = initialScale;
    needUpdate();
}

void Bone::needUpdate() {
    needParentUpdate = true;
    needChildUpdate = true;
    if (parent && !parentNotified) {
        parent->requestUpdate(this);
        parentNotified = true;
    }
    childrenToUpdate.clear();
}

void Bone::requestUpdate(Bone* child) {
    if (needChildUpdate) return;
    childrenToUpdate[child->name] = child;
    if (parent && !parentNotified) {
        parent->requestUpdate(this);
        parentNotified = true;
    }
}

void Bone::updateFromParent() {
    if (parent) {
        const ZuQuaternion& po = parent->_getDerivedOrientation();
        const ZuVec3& ps = parent->_getDerivedScale();
        derivedOrientation = po * orientation;
        derivedScale = mul(ps, scaleValue);
        derivedPosition = rotateBy(po, mul(ps, position)) + parent->_getDerivedPosition();
    } else {
        derivedOrientation = orientation;
        derivedPosition = position;
        derivedScale = scaleValue;
    }
    needParentUpdate = false;
}

const ZuVec3& Bone::_getDerivedPosition() {
    if (needParentUpdate) updateFromParent();
    return derivedPosition;
}

const ZuQuaternion& Bone::_getDerivedOrientation() {
    if (needParentUpdate) updateFromParent();
    return derivedOrientation;
}

const ZuVec3& Bone::_getDerivedScale() {
    if (needParentUpdate) updateFromParent();
    return derivedScale;
}

void Bone::_update(bool updateChildren, bool parentHasChanged) {
    parentNotified = false;
    if (!updateChildren && !needParentUpdate && !needChildUpdate && !parentHasChanged) return;
    if (needParentUpdate || parentHasChanged) updateFromParent();
    if (needChildUpdate || parentHasChanged) {
        for (auto& child : children) child.second->_update(true, true);
    } else {
        for (auto& child : childrenToUpdate) child.second->_update(true, false);
    }
    childrenToUpdate.clear();
    needChildUpdate = false;
}

ZuMatrix4 Bone::_getOffsetTransform() {
    ZuVec3 s = mul(_getDerivedScale(), bindInverseScale);
    ZuQuaternion r = _getDerivedOrientation() * bindInverseOrientation;
    ZuVec3 t = _getDerivedPosition() + rotateBy(r, mul(s, bindInversePosition));
    ZuMatrix4 out;
    out.makeTransform(t, s, r);
    return out;
}
