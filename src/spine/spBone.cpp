#include "spine/spBone.h"

#include "spine/spAllocator.h"
#include "spine/spBoneData.h"
#include "spine/spMath.h"
#include "spine/spSkeleton.h"

namespace {
int g_yDown = 0;

inline float signOf(float scale) { return scale > 0 ? 1.0f : -1.0f; }
} // namespace

void spBone_setYDown(int yDown) {
    g_yDown = yDown;
}

int spBone_isYDown(void) {
    return g_yDown;
}

spBone* spBone_create(spBoneData* data, spSkeleton* skeleton, spBone* parent) {
    spBone* self = SP_NEW(spBone);
    self->data = data;
    self->skeleton = skeleton;
    self->parent = parent;
    self->a = self->d = 1;
    self->worldSignX = self->worldSignY = 1;
    spBone_setToSetupPose(self);
    return self;
}

void spBone_dispose(spBone* self) {
    if (!self) return;
    SP_FREE(self->children);
    SP_FREE(self);
}

void spBone_setToSetupPose(spBone* self) {
    const spBoneData* data = self->data;
    self->x = data->x;
    self->y = data->y;
    self->rotation = data->rotation;
    self->scaleX = data->scaleX;
    self->scaleY = data->scaleY;
    self->shearX = data->shearX;
    self->shearY = data->shearY;
}

void spBone_updateWorldTransform(spBone* self) {
    spBone_updateWorldTransformWith(self, self->x, self->y, self->rotation, self->scaleX, self->scaleY,
                                    self->shearX, self->shearY);
}

void spBone_updateWorldTransformWith(spBone* self, float x, float y, float rotation, float scaleX, float scaleY,
                                     float shearX, float shearY) {
    self->appliedRotation = rotation;
    float rotationX = (rotation + shearX) * SP_DEG_RAD;
    float rotationY = (rotation + 90 + shearY) * SP_DEG_RAD;
    float la = cosf(rotationX) * scaleX, lb = cosf(rotationY) * scaleY;
    float lc = sinf(rotationX) * scaleX, ld = sinf(rotationY) * scaleY;
    const spSkeleton* skeleton = self->skeleton;
    // A skeleton flipped in y that also has y pointing down looks unflipped.
    int flipY = (skeleton->flipY != 0) != (g_yDown != 0);
    spBone* parent = self->parent;

    if (!parent) {
        if (skeleton->flipX) {
            x = -x;
            la = -la;
            lb = -lb;
        }
        if (flipY) {
            y = -y;
            lc = -lc;
            ld = -ld;
        }
        self->a = la;
        self->b = lb;
        self->c = lc;
        self->d = ld;
        self->worldX = x;
        self->worldY = y;
        self->worldSignX = signOf(scaleX);
        self->worldSignY = signOf(scaleY);
        return;
    }

    float pa = parent->a, pb = parent->b, pc = parent->c, pd = parent->d;
    self->worldX = pa * x + pb * y + parent->worldX;
    self->worldY = pc * x + pd * y + parent->worldY;
    self->worldSignX = parent->worldSignX * signOf(scaleX);
    self->worldSignY = parent->worldSignY * signOf(scaleY);

    const spBoneData* data = self->data;
    if (data->inheritRotation && data->inheritScale) {
        self->a = pa * la + pb * lc;
        self->b = pa * lb + pb * ld;
        self->c = pc * la + pd * lc;
        self->d = pc * lb + pd * ld;
        return;
    }

    if (data->inheritRotation) {
        // Only the ancestors' rotations reach this bone: compose them up to
        // and including the first ancestor that doesn't inherit rotation.
        pa = 1;
        pb = 0;
        pc = 0;
        pd = 1;
        for (const spBone* p = parent; p; p = p->parent) {
            float cosine = spCosDeg(p->appliedRotation), sine = spSinDeg(p->appliedRotation);
            float ta = pa * cosine + pb * sine;
            pb = pb * cosine - pa * sine;
            pa = ta;
            float tc = pc * cosine + pd * sine;
            pd = pd * cosine - pc * sine;
            pc = tc;
            if (!p->data->inheritRotation) break;
        }
    } else if (data->inheritScale) {
        // Only the ancestors' scales reach this bone, each along its own
        // (rotated) axes: compose R(r) * S * R(-r) per ancestor.
        pa = 1;
        pb = 0;
        pc = 0;
        pd = 1;
        for (const spBone* p = parent; p; p = p->parent) {
            float r = p->appliedRotation;
            if (p->scaleX < 0) r = -r;
            float cosine = spCosDeg(r), sine = spSinDeg(r);
            float psx = p->scaleX, psy = p->scaleY;
            // Z = R(r) * diag(psx, psy) * R(-r)
            float za = cosine * cosine * psx + sine * sine * psy;
            float zb = cosine * sine * (psx - psy);
            float zc = zb;
            float zd = sine * sine * psx + cosine * cosine * psy;
            float ta = pa * za + pb * zc;
            pb = pa * zb + pb * zd;
            pa = ta;
            float tc = pc * za + pd * zc;
            pd = pc * zb + pd * zd;
            pc = tc;
            if (!p->data->inheritScale) break;
        }
    } else {
        pa = 1;
        pb = 0;
        pc = 0;
        pd = 1;
    }
    self->a = pa * la + pb * lc;
    self->b = pa * lb + pb * ld;
    self->c = pc * la + pd * lc;
    self->d = pc * lb + pd * ld;
    // The walks above don't see the skeleton's flips, so they apply here.
    if (skeleton->flipX) {
        self->a = -self->a;
        self->b = -self->b;
    }
    if (flipY) {
        self->c = -self->c;
        self->d = -self->d;
    }
}

float spBone_getWorldRotationX(const spBone* self) {
    return atan2f(self->c, self->a) * SP_RAD_DEG;
}

float spBone_getWorldRotationY(const spBone* self) {
    return atan2f(self->d, self->b) * SP_RAD_DEG;
}

float spBone_getWorldScaleX(const spBone* self) {
    return sqrtf(self->a * self->a + self->c * self->c) * self->worldSignX;
}

float spBone_getWorldScaleY(const spBone* self) {
    return sqrtf(self->b * self->b + self->d * self->d) * self->worldSignY;
}

void spBone_worldToLocal(const spBone* self, float worldX, float worldY, float* localX, float* localY) {
    float det = self->a * self->d - self->b * self->c;
    float x = worldX - self->worldX, y = worldY - self->worldY;
    if (det == 0) {
        *localX = *localY = 0;
        return;
    }
    float inverse = 1 / det;
    *localX = (x * self->d - y * self->b) * inverse;
    *localY = (y * self->a - x * self->c) * inverse;
}

void spBone_localToWorld(const spBone* self, float localX, float localY, float* worldX, float* worldY) {
    *worldX = localX * self->a + localY * self->b + self->worldX;
    *worldY = localX * self->c + localY * self->d + self->worldY;
}
