#pragma once

struct spPathConstraintData;
struct spPathAttachment;
struct spSkeleton;
struct spBone;
struct spSlot;

// Lays its bones along the path attachment shown in the target slot.
struct spPathConstraint {
    spPathConstraintData* data;
    int bonesCount;
    spBone** bones;
    spSlot* target;
    float position, spacing, rotateMix, translateMix;

    // Work buffers, grown when needed and kept.
    int spacesCapacity;
    float* spaces;     // distance from each position to the next
    float* lengths;    // world bone lengths, chain scale mode
    int positionsCapacity;
    float* positions;  // x, y, tangent angle per position
    int worldCapacity;
    float* world;      // path vertices in the bones' world space
    int curvesCapacity;
    float* curves;     // cumulative length at the end of each curve
};

spPathConstraint* spPathConstraint_create(spPathConstraintData* data, const spSkeleton* skeleton);
void spPathConstraint_dispose(spPathConstraint* self);
void spPathConstraint_apply(spPathConstraint* self);

// Positions along the path for `spacesCount` distances in self->spaces (the
// first is the start). Gives 3 floats each: x, y and the tangent angle in
// radians; null when the path has no curve. Positions past an open path's
// ends continue along its end tangents; a closed path wraps around.
float* spPathConstraint_computeWorldPositions(spPathConstraint* self, spPathAttachment* path, int spacesCount,
                                              int tangents, int percentPosition, int percentSpacing);
