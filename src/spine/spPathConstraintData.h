#pragma once

struct spBoneData;
struct spSlotData;

enum spPositionMode { SP_POSITION_MODE_FIXED, SP_POSITION_MODE_PERCENT };
enum spSpacingMode { SP_SPACING_MODE_LENGTH, SP_SPACING_MODE_FIXED, SP_SPACING_MODE_PERCENT };
enum spRotateMode { SP_ROTATE_MODE_TANGENT, SP_ROTATE_MODE_CHAIN, SP_ROTATE_MODE_CHAIN_SCALE };

// Setup of a path constraint: bones are laid along the path attachment shown
// in the target slot.
struct spPathConstraintData {
    const char* name;
    int bonesCount;
    spBoneData** bones;
    spSlotData* target;
    spPositionMode positionMode;
    spSpacingMode spacingMode;
    spRotateMode rotateMode;
    float offsetRotation;
    float position, spacing, rotateMix, translateMix;
};

spPathConstraintData* spPathConstraintData_create(const char* name);
void spPathConstraintData_dispose(spPathConstraintData* self);
