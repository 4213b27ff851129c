#include "spine/spPathConstraint.h"

#include "spine/spAllocator.h"
#include "spine/spBone.h"
#include "spine/spBoneData.h"
#include "spine/spMath.h"
#include "spine/spPathAttachment.h"
#include "spine/spPathConstraintData.h"
#include "spine/spSkeleton.h"
#include "spine/spSlot.h"
#include "spine/spSlotData.h"

namespace {

// Segments per curve when measuring arc length.
const int kCurveSegments = 16;

void ensure(float** buffer, int* capacity, int size) {
    if (size <= *capacity) return;
    SP_FREE(*buffer);
    *buffer = SP_MALLOC(float, size);
    *capacity = size;
}

struct Curve {
    float x1, y1, cx1, cy1, cx2, cy2, x2, y2;
};

// Curve i of the path: point i, its outgoing handle, the next point's
// incoming handle and the next point (wrapping for a closed path).
Curve curveAt(const float* world, int pointCount, int i) {
    int next = (i + 1) % pointCount;
    Curve curve;
    curve.x1 = world[i * 6 + 2];
    curve.y1 = world[i * 6 + 3];
    curve.cx1 = world[i * 6 + 4];
    curve.cy1 = world[i * 6 + 5];
    curve.cx2 = world[next * 6];
    curve.cy2 = world[next * 6 + 1];
    curve.x2 = world[next * 6 + 2];
    curve.y2 = world[next * 6 + 3];
    return curve;
}

void pointAt(const Curve& c, float t, float* x, float* y) {
    float u = 1 - t;
    float b0 = u * u * u, b1 = 3 * u * u * t, b2 = 3 * u * t * t, b3 = t * t * t;
    *x = b0 * c.x1 + b1 * c.cx1 + b2 * c.cx2 + b3 * c.x2;
    *y = b0 * c.y1 + b1 * c.cy1 + b2 * c.cy2 + b3 * c.y2;
}

float tangentAt(const Curve& c, float t) {
    float u = 1 - t;
    float dx = 3 * u * u * (c.cx1 - c.x1) + 6 * u * t * (c.cx2 - c.cx1) + 3 * t * t * (c.x2 - c.cx2);
    float dy = 3 * u * u * (c.cy1 - c.y1) + 6 * u * t * (c.cy2 - c.cy1) + 3 * t * t * (c.y2 - c.cy2);
    if (dx == 0 && dy == 0) {
        dx = c.x2 - c.x1;
        dy = c.y2 - c.y1;
    }
    return atan2f(dy, dx);
}

float curveLength(const Curve& c) {
    float length = 0, px = c.x1, py = c.y1;
    for (int k = 1; k <= kCurveSegments; k++) {
        float x, y;
        pointAt(c, (float)k / kCurveSegments, &x, &y);
        length += sqrtf((x - px) * (x - px) + (y - py) * (y - py));
        px = x;
        py = y;
    }
    return length;
}

// Curve parameter at arc length `distance` from the curve's start, through
// the same polyline that measured it.
float parameterAtLength(const Curve& c, float distance) {
    float travelled = 0, px = c.x1, py = c.y1;
    for (int k = 1; k <= kCurveSegments; k++) {
        float x, y;
        pointAt(c, (float)k / kCurveSegments, &x, &y);
        float segment = sqrtf((x - px) * (x - px) + (y - py) * (y - py));
        if (travelled + segment >= distance) {
            float fraction = segment > 0 ? (distance - travelled) / segment : 0;
            return ((float)(k - 1) + fraction) / kCurveSegments;
        }
        travelled += segment;
        px = x;
        py = y;
    }
    return 1;
}

// Straight continuation past an end: from (x, y) in direction `angle`.
void extend(float* out, float x, float y, float angle, float distance) {
    out[0] = x + cosf(angle) * distance;
    out[1] = y + sinf(angle) * distance;
    out[2] = angle;
}

} // namespace

spPathConstraint* spPathConstraint_create(spPathConstraintData* data, const spSkeleton* skeleton) {
    spPathConstraint* self = SP_NEW(spPathConstraint);
    self->data = data;
    self->bonesCount = data->bonesCount;
    self->bones = SP_CALLOC(spBone*, data->bonesCount);
    for (int i = 0; i < data->bonesCount; i++) self->bones[i] = skeleton->bones[data->bones[i]->index];
    self->target = skeleton->slots[data->target->index];
    self->position = data->position;
    self->spacing = data->spacing;
    self->rotateMix = data->rotateMix;
    self->translateMix = data->translateMix;
    return self;
}

void spPathConstraint_dispose(spPathConstraint* self) {
    if (!self) return;
    SP_FREE(self->bones);
    SP_FREE(self->spaces);
    SP_FREE(self->lengths);
    SP_FREE(self->positions);
    SP_FREE(self->world);
    SP_FREE(self->curves);
    SP_FREE(self);
}

float* spPathConstraint_computeWorldPositions(spPathConstraint* self, spPathAttachment* path, int spacesCount,
                                              int tangents, int percentPosition, int percentSpacing) {
    (void)tangents;
    int verticesLength = path->super.worldVerticesLength;
    int pointCount = verticesLength / 6;
    int curveCount = path->closed ? pointCount : pointCount - 1;
    if (curveCount < 1 || spacesCount < 1) return nullptr;

    ensure(&self->world, &self->worldCapacity, pointCount * 6);
    _spVertexAttachment_computeBoneSpaceVertices(&path->super, 0, pointCount * 6, self->target, self->world, 0);
    const float* world = self->world;

    ensure(&self->curves, &self->curvesCapacity, curveCount);
    float* curves = self->curves;
    int constantSpeed = path->constantSpeed || path->lengthsCount < curveCount;
    float total = 0;
    for (int i = 0; i < curveCount; i++) {
        if (constantSpeed) total += curveLength(curveAt(world, pointCount, i));
        else total = path->lengths[i];
        curves[i] = total;
    }
    float pathLength = curves[curveCount - 1];

    ensure(&self->positions, &self->positionsCapacity, spacesCount * 3);
    float* out = self->positions;
    float position = self->position;
    if (percentPosition) position *= pathLength;
    const float* spaces = self->spaces;

    for (int i = 0; i < spacesCount; i++, out += 3) {
        position += percentSpacing ? spaces[i] * pathLength : spaces[i];
        float p = position;
        if (path->closed) {
            if (pathLength > 0) {
                p = fmodf(p, pathLength);
                if (p < 0) p += pathLength;
            } else {
                p = 0;
            }
        } else if (p < 0) {
            Curve first = curveAt(world, pointCount, 0);
            extend(out, first.x1, first.y1, tangentAt(first, 0), p);
            continue;
        } else if (p > pathLength) {
            Curve last = curveAt(world, pointCount, curveCount - 1);
            extend(out, last.x2, last.y2, tangentAt(last, 1), p - pathLength);
            continue;
        }
        if (!(p == p)) p = 0;

        // First curve whose end lies at or beyond p.
        int low = 0, high = curveCount - 1;
        while (low < high) {
            int middle = (low + high) / 2;
            if (curves[middle] >= p) high = middle;
            else low = middle + 1;
        }
        float start = low > 0 ? curves[low - 1] : 0;
        float length = curves[low] - start;
        Curve curve = curveAt(world, pointCount, low);
        float t;
        if (length <= 0) t = 0;
        else if (constantSpeed) t = parameterAtLength(curve, p - start);
        else t = spClamp((p - start) / length, 0, 1);
        pointAt(curve, t, &out[0], &out[1]);
        out[2] = tangentAt(curve, t);
    }
    return self->positions;
}

void spPathConstraint_apply(spPathConstraint* self) {
    float rotateMix = self->rotateMix, translateMix = self->translateMix;
    if (!(rotateMix > 0) && !(translateMix > 0)) return;
    spAttachment* attachment = self->target->attachment;
    if (!attachment || attachment->type != SP_ATTACHMENT_PATH) return;
    spPathAttachment* path = (spPathAttachment*)attachment;

    const spPathConstraintData* data = self->data;
    int boneCount = self->bonesCount;
    if (boneCount < 1) return;
    int scale = data->rotateMode == SP_ROTATE_MODE_CHAIN_SCALE;
    int tangents = data->rotateMode == SP_ROTATE_MODE_TANGENT;
    int lengthSpacing = data->spacingMode == SP_SPACING_MODE_LENGTH;
    // Chain modes also need the end of the last bone to aim at.
    int spacesCount = tangents ? boneCount : boneCount + 1;

    if (spacesCount > self->spacesCapacity) {
        SP_FREE(self->spaces);
        SP_FREE(self->lengths);
        self->spaces = SP_MALLOC(float, spacesCount);
        self->lengths = SP_MALLOC(float, spacesCount);
        self->spacesCapacity = spacesCount;
    }
    float* spaces = self->spaces;
    float* lengths = self->lengths;
    spaces[0] = 0;
    float spacing = self->spacing;
    for (int i = 0; i < spacesCount - 1; i++) {
        const spBone* bone = self->bones[i];
        float x = bone->data->length * bone->a, y = bone->data->length * bone->c;
        float length = sqrtf(x * x + y * y);
        lengths[i] = length;
        if (lengthSpacing) {
            float space = length + spacing;
            spaces[i + 1] = space > 0 ? space : 0;
        } else {
            spaces[i + 1] = spacing;
        }
    }

    float* positions = spPathConstraint_computeWorldPositions(
        self, path, spacesCount, tangents, data->positionMode == SP_POSITION_MODE_PERCENT,
        data->spacingMode == SP_SPACING_MODE_PERCENT);
    if (!positions) return;

    float offsetRotation = data->offsetRotation * SP_DEG_RAD;
    for (int i = 0; i < boneCount; i++) {
        spBone* bone = self->bones[i];
        const float* p = positions + i * 3;
        bone->worldX += (p[0] - bone->worldX) * translateMix;
        bone->worldY += (p[1] - bone->worldY) * translateMix;

        bool hasNext = i + 1 < spacesCount;
        float dx = hasNext ? p[3] - p[0] : 0, dy = hasNext ? p[4] - p[1] : 0;
        if (scale && hasNext) {
            float length = lengths[i];
            if (length > 0.00001f) {
                float s = (sqrtf(dx * dx + dy * dy) / length - 1) * rotateMix + 1;
                bone->a *= s;
                bone->c *= s;
            }
        }
        if (rotateMix > 0) {
            float r = tangents || !hasNext ? p[2] : atan2f(dy, dx);
            r = spWrapRadians(r - atan2f(bone->c, bone->a) + offsetRotation) * rotateMix;
            float cosine = cosf(r), sine = sinf(r);
            float a = bone->a, b = bone->b, c = bone->c, d = bone->d;
            bone->a = cosine * a - sine * c;
            bone->b = cosine * b - sine * d;
            bone->c = sine * a + cosine * c;
            bone->d = sine * b + cosine * d;
        }
    }
}
