// Reading of the "animations" section of a skeleton file into timelines.
#include "spine/Json.h"
#include "spine/spAllocator.h"
#include "spine/spAnimation.h"
#include "spine/spBoneTimelines.h"
#include "spine/spConstraintTimelines.h"
#include "spine/spDrawOrderTimeline.h"
#include "spine/spEvent.h"
#include "spine/spEventData.h"
#include "spine/spEventTimeline.h"
#include "spine/spIkConstraintData.h"
#include "spine/spPathConstraintData.h"
#include "spine/spSkeletonData.h"
#include "spine/spSkeletonJsonReader.h"
#include "spine/spSkin.h"
#include "spine/spSlotTimelines.h"
#include "spine/spTransformConstraintData.h"
#include "spine/spVertexAttachment.h"

#include <string.h>

namespace {

struct TimelineList {
    spTimeline** items;
    int count;
    int capacity;
    float duration;
};

void push(TimelineList* list, spTimeline* timeline) {
    if (list->count == list->capacity) {
        int capacity = list->capacity ? list->capacity * 2 : 16;
        spTimeline** grown = SP_MALLOC(spTimeline*, capacity);
        if (list->count) memcpy(grown, list->items, sizeof(spTimeline*) * list->count);
        SP_FREE(list->items);
        list->items = grown;
        list->capacity = capacity;
    }
    list->items[list->count++] = timeline;
}

void disposeList(TimelineList* list) {
    for (int i = 0; i < list->count; i++) spTimeline_dispose(list->items[i]);
    SP_FREE(list->items);
}

float frameTime(TimelineList* list, Json* frame) {
    float time = Json_getFloat(frame, "time", 0);
    if (time > list->duration) list->duration = time;
    return time;
}

// "curve": "stepped", or [cx1, cy1, cx2, cy2]; anything else is linear.
void readCurve(spCurveTimeline* timeline, int frameIndex, Json* frame) {
    Json* curve = Json_getItem(frame, "curve");
    if (!curve) return;
    if (curve->type == Json_String) {
        if (strcmp(curve->valueString, "stepped") == 0) spCurveTimeline_setStepped(timeline, frameIndex);
    } else if (curve->type == Json_Array && curve->size >= 4) {
        Json* c = curve->child;
        float cx1 = c->valueFloat, cy1 = c->next->valueFloat;
        float cx2 = c->next->next->valueFloat, cy2 = c->next->next->next->valueFloat;
        spCurveTimeline_setCurve(timeline, frameIndex, cx1, cy1, cx2, cy2);
    }
}

bool readSlotTimelines(spJsonRead* read, TimelineList* list, Json* slots) {
    for (Json* slotMap = slots ? slots->child : nullptr; slotMap; slotMap = slotMap->next) {
        const char* slotName = slotMap->name ? slotMap->name : "";
        int slotIndex = spSkeletonData_findSlotIndex(read->data, slotName);
        if (slotIndex < 0) return _spJsonRead_fail(read, "Slot not found: ", slotName);
        for (Json* timelineMap = slotMap->child; timelineMap; timelineMap = timelineMap->next) {
            const char* name = timelineMap->name ? timelineMap->name : "";
            int framesCount = timelineMap->size;
            if (strcmp(name, "color") == 0) {
                if (framesCount == 0) continue;
                spColorTimeline* timeline = spColorTimeline_create(framesCount);
                timeline->slotIndex = slotIndex;
                push(list, &timeline->super.super);
                int i = 0;
                for (Json* frame = timelineMap->child; frame; frame = frame->next, i++) {
                    float r, g, b, a;
                    _spJsonRead_color(Json_getString(frame, "color", "ffffffff"), &r, &g, &b, &a);
                    spColorTimeline_setFrame(timeline, i, frameTime(list, frame), r, g, b, a);
                    readCurve(&timeline->super, i, frame);
                }
            } else if (strcmp(name, "attachment") == 0) {
                if (framesCount == 0) continue;
                spAttachmentTimeline* timeline = spAttachmentTimeline_create(framesCount);
                timeline->slotIndex = slotIndex;
                push(list, &timeline->super);
                int i = 0;
                for (Json* frame = timelineMap->child; frame; frame = frame->next, i++)
                    spAttachmentTimeline_setFrame(timeline, i, frameTime(list, frame),
                                                  Json_getString(frame, "name", nullptr));
            } else {
                return _spJsonRead_fail(read, "Invalid timeline type for a slot: ", name);
            }
        }
    }
    return true;
}

bool readBoneTimelines(spJsonRead* read, TimelineList* list, Json* bones) {
    for (Json* boneMap = bones ? bones->child : nullptr; boneMap; boneMap = boneMap->next) {
        const char* boneName = boneMap->name ? boneMap->name : "";
        int boneIndex = spSkeletonData_findBoneIndex(read->data, boneName);
        if (boneIndex < 0) return _spJsonRead_fail(read, "Bone not found: ", boneName);
        for (Json* timelineMap = boneMap->child; timelineMap; timelineMap = timelineMap->next) {
            const char* name = timelineMap->name ? timelineMap->name : "";
            int framesCount = timelineMap->size;
            if (strcmp(name, "rotate") == 0) {
                if (framesCount == 0) continue;
                spRotateTimeline* timeline = spRotateTimeline_create(framesCount);
                timeline->boneIndex = boneIndex;
                push(list, &timeline->super.super);
                int i = 0;
                for (Json* frame = timelineMap->child; frame; frame = frame->next, i++) {
                    spRotateTimeline_setFrame(timeline, i, frameTime(list, frame), Json_getFloat(frame, "angle", 0));
                    readCurve(&timeline->super, i, frame);
                }
                continue;
            }
            spTranslateTimeline* timeline;
            float scale = 1, defaultValue = 0;
            if (strcmp(name, "translate") == 0) {
                if (framesCount == 0) continue;
                timeline = spTranslateTimeline_create(framesCount);
                scale = read->scale;
            } else if (strcmp(name, "scale") == 0) {
                if (framesCount == 0) continue;
                timeline = spScaleTimeline_create(framesCount);
                defaultValue = 1;
            } else if (strcmp(name, "shear") == 0) {
                if (framesCount == 0) continue;
                timeline = spShearTimeline_create(framesCount);
            } else {
                return _spJsonRead_fail(read, "Invalid timeline type for a bone: ", name);
            }
            timeline->boneIndex = boneIndex;
            push(list, &timeline->super.super);
            int i = 0;
            for (Json* frame = timelineMap->child; frame; frame = frame->next, i++) {
                float x = Json_getFloat(frame, "x", defaultValue) * scale;
                float y = Json_getFloat(frame, "y", defaultValue) * scale;
                spTranslateTimeline_setFrame(timeline, i, frameTime(list, frame), x, y);
                readCurve(&timeline->super, i, frame);
            }
        }
    }
    return true;
}

bool readIkTimelines(spJsonRead* read, TimelineList* list, Json* ik) {
    for (Json* constraintMap = ik ? ik->child : nullptr; constraintMap; constraintMap = constraintMap->next) {
        const char* name = constraintMap->name ? constraintMap->name : "";
        spIkConstraintData* constraint = spSkeletonData_findIkConstraint(read->data, name);
        if (!constraint) return _spJsonRead_fail(read, "IK constraint not found: ", name);
        if (constraintMap->size == 0) continue;
        int index = 0;
        while (read->data->ikConstraints[index] != constraint) index++;
        spIkConstraintTimeline* timeline = spIkConstraintTimeline_create(constraintMap->size);
        timeline->ikConstraintIndex = index;
        push(list, &timeline->super.super);
        int i = 0;
        for (Json* frame = constraintMap->child; frame; frame = frame->next, i++) {
            spIkConstraintTimeline_setFrame(timeline, i, frameTime(list, frame), Json_getFloat(frame, "mix", 1),
                                            Json_getInt(frame, "bendPositive", 1) ? 1 : -1);
            readCurve(&timeline->super, i, frame);
        }
    }
    return true;
}

bool readTransformTimelines(spJsonRead* read, TimelineList* list, Json* transform) {
    for (Json* constraintMap = transform ? transform->child : nullptr; constraintMap;
         constraintMap = constraintMap->next) {
        const char* name = constraintMap->name ? constraintMap->name : "";
        spTransformConstraintData* constraint = spSkeletonData_findTransformConstraint(read->data, name);
        if (!constraint) return _spJsonRead_fail(read, "Transform constraint not found: ", name);
        if (constraintMap->size == 0) continue;
        int index = 0;
        while (read->data->transformConstraints[index] != constraint) index++;
        spTransformConstraintTimeline* timeline = spTransformConstraintTimeline_create(constraintMap->size);
        timeline->transformConstraintIndex = index;
        push(list, &timeline->super.super);
        int i = 0;
        for (Json* frame = constraintMap->child; frame; frame = frame->next, i++) {
            spTransformConstraintTimeline_setFrame(
                timeline, i, frameTime(list, frame), Json_getFloat(frame, "rotateMix", 1),
                Json_getFloat(frame, "translateMix", 1), Json_getFloat(frame, "scaleMix", 1),
                Json_getFloat(frame, "shearMix", 1));
            readCurve(&timeline->super, i, frame);
        }
    }
    return true;
}

bool readPathTimelines(spJsonRead* read, TimelineList* list, Json* paths) {
    for (Json* constraintMap = paths ? paths->child : nullptr; constraintMap; constraintMap = constraintMap->next) {
        const char* constraintName = constraintMap->name ? constraintMap->name : "";
        spPathConstraintData* constraint = spSkeletonData_findPathConstraint(read->data, constraintName);
        if (!constraint) return _spJsonRead_fail(read, "Path constraint not found: ", constraintName);
        int index = 0;
        while (read->data->pathConstraints[index] != constraint) index++;
        for (Json* timelineMap = constraintMap->child; timelineMap; timelineMap = timelineMap->next) {
            const char* name = timelineMap->name ? timelineMap->name : "";
            int framesCount = timelineMap->size;
            bool position = strcmp(name, "position") == 0;
            if (position || strcmp(name, "spacing") == 0) {
                if (framesCount == 0) continue;
                float scale = 1;
                spPathConstraintPositionTimeline* timeline;
                if (position) {
                    timeline = spPathConstraintPositionTimeline_create(framesCount);
                    if (constraint->positionMode == SP_POSITION_MODE_FIXED) scale = read->scale;
                } else {
                    timeline = spPathConstraintSpacingTimeline_create(framesCount);
                    if (constraint->spacingMode == SP_SPACING_MODE_LENGTH ||
                        constraint->spacingMode == SP_SPACING_MODE_FIXED)
                        scale = read->scale;
                }
                timeline->pathConstraintIndex = index;
                push(list, &timeline->super.super);
                int i = 0;
                for (Json* frame = timelineMap->child; frame; frame = frame->next, i++) {
                    spPathConstraintPositionTimeline_setFrame(timeline, i, frameTime(list, frame),
                                                              Json_getFloat(frame, name, 0) * scale);
                    readCurve(&timeline->super, i, frame);
                }
            } else if (strcmp(name, "mix") == 0) {
                if (framesCount == 0) continue;
                spPathConstraintMixTimeline* timeline = spPathConstraintMixTimeline_create(framesCount);
                timeline->pathConstraintIndex = index;
                push(list, &timeline->super.super);
                int i = 0;
                for (Json* frame = timelineMap->child; frame; frame = frame->next, i++) {
                    spPathConstraintMixTimeline_setFrame(timeline, i, frameTime(list, frame),
                                                         Json_getFloat(frame, "rotateMix", 1),
                                                         Json_getFloat(frame, "translateMix", 1));
                    readCurve(&timeline->super, i, frame);
                }
            } else {
                return _spJsonRead_fail(read, "Invalid timeline type for a path constraint: ", name);
            }
        }
    }
    return true;
}

bool isVertexAttachment(const spAttachment* attachment) {
    return attachment->type == SP_ATTACHMENT_MESH || attachment->type == SP_ATTACHMENT_BOUNDING_BOX ||
           attachment->type == SP_ATTACHMENT_PATH;
}

bool readDeformTimeline(spJsonRead* read, TimelineList* list, Json* timelineMap, int slotIndex,
                        spVertexAttachment* attachment, const char* name) {
    int framesCount = timelineMap->size;
    if (framesCount == 0) return true;
    int weighted = attachment->bones != nullptr;
    int deformLength = spVertexAttachment_getDeformLength(attachment);
    spDeformTimeline* timeline = spDeformTimeline_create(framesCount, deformLength);
    timeline->slotIndex = slotIndex;
    timeline->attachment = attachment;
    push(list, &timeline->super.super);

    float* deform = SP_MALLOC(float, deformLength > 0 ? deformLength : 1);
    int i = 0;
    bool ok = true;
    for (Json* frame = timelineMap->child; frame && ok; frame = frame->next, i++) {
        Json* vertices = Json_getItem(frame, "vertices");
        if (!vertices) {
            // No key values: the setup shape.
            for (int v = 0; v < deformLength; v++) deform[v] = weighted ? 0 : attachment->vertices[v];
        } else {
            for (int v = 0; v < deformLength; v++) deform[v] = 0;
            long long at = Json_getInt(frame, "offset", 0);
            for (Json* value = vertices->child; value; value = value->next, at++) {
                if (at < 0 || at >= deformLength) {
                    ok = _spJsonRead_fail(read, "Invalid deform vertices for attachment: ", name);
                    break;
                }
                deform[at] = value->valueFloat * read->scale;
            }
            if (!weighted)
                for (int v = 0; v < deformLength; v++) deform[v] += attachment->vertices[v];
        }
        spDeformTimeline_setFrame(timeline, i, frameTime(list, frame), deform);
        readCurve(&timeline->super, i, frame);
    }
    SP_FREE(deform);
    return ok;
}

bool readDeformTimelines(spJsonRead* read, TimelineList* list, Json* deform) {
    for (Json* skinMap = deform ? deform->child : nullptr; skinMap; skinMap = skinMap->next) {
        const char* skinName = skinMap->name ? skinMap->name : "";
        spSkin* skin = spSkeletonData_findSkin(read->data, skinName);
        if (!skin) return _spJsonRead_fail(read, "Skin not found: ", skinName);
        for (Json* slotMap = skinMap->child; slotMap; slotMap = slotMap->next) {
            const char* slotName = slotMap->name ? slotMap->name : "";
            int slotIndex = spSkeletonData_findSlotIndex(read->data, slotName);
            if (slotIndex < 0) return _spJsonRead_fail(read, "Slot not found: ", slotName);
            for (Json* timelineMap = slotMap->child; timelineMap; timelineMap = timelineMap->next) {
                const char* name = timelineMap->name ? timelineMap->name : "";
                spAttachment* attachment = spSkin_getAttachment(skin, slotIndex, name);
                if (!attachment) return _spJsonRead_fail(read, "Attachment not found: ", name);
                if (!isVertexAttachment(attachment))
                    return _spJsonRead_fail(read, "Attachment is not deformable: ", name);
                if (!readDeformTimeline(read, list, timelineMap, slotIndex, (spVertexAttachment*)attachment, name))
                    return false;
            }
        }
    }
    return true;
}

// One frame's "offsets" into a draw order: each listed slot moves by its
// offset, the others keep their relative order in the remaining places.
bool readDrawOrder(spJsonRead* read, Json* offsets, int* drawOrder, int* unchanged) {
    int slotsCount = read->data->slotsCount;
    for (int i = 0; i < slotsCount; i++) drawOrder[i] = -1;
    int originalIndex = 0, unchangedIndex = 0;
    for (Json* offsetMap = offsets->child; offsetMap; offsetMap = offsetMap->next) {
        const char* slotName = Json_getString(offsetMap, "slot", "");
        int slotIndex = spSkeletonData_findSlotIndex(read->data, slotName);
        if (slotIndex < 0) return _spJsonRead_fail(read, "Slot not found: ", slotName);
        if (slotIndex < originalIndex) return _spJsonRead_fail(read, "Invalid draw order offset for slot: ", slotName);
        while (originalIndex != slotIndex) unchanged[unchangedIndex++] = originalIndex++;
        long long target = (long long)originalIndex + Json_getInt(offsetMap, "offset", 0);
        if (target < 0 || target >= slotsCount || drawOrder[target] != -1)
            return _spJsonRead_fail(read, "Invalid draw order offset for slot: ", slotName);
        drawOrder[target] = originalIndex++;
    }
    while (originalIndex < slotsCount) unchanged[unchangedIndex++] = originalIndex++;
    for (int i = slotsCount - 1; i >= 0; i--)
        if (drawOrder[i] == -1) drawOrder[i] = unchanged[--unchangedIndex];
    return true;
}

bool readDrawOrderTimeline(spJsonRead* read, TimelineList* list, Json* drawOrderMap) {
    if (!drawOrderMap || drawOrderMap->size == 0) return true;
    int slotsCount = read->data->slotsCount;
    spDrawOrderTimeline* timeline = spDrawOrderTimeline_create(drawOrderMap->size, slotsCount);
    push(list, &timeline->super);
    int* drawOrder = SP_MALLOC(int, slotsCount > 0 ? slotsCount : 1);
    int* unchanged = SP_MALLOC(int, slotsCount > 0 ? slotsCount : 1);
    bool ok = true;
    int i = 0;
    for (Json* frame = drawOrderMap->child; frame; frame = frame->next, i++) {
        Json* offsets = Json_getItem(frame, "offsets");
        if (offsets && !readDrawOrder(read, offsets, drawOrder, unchanged)) {
            ok = false;
            break;
        }
        spDrawOrderTimeline_setFrame(timeline, i, frameTime(list, frame), offsets ? drawOrder : nullptr);
    }
    SP_FREE(drawOrder);
    SP_FREE(unchanged);
    return ok;
}

bool readEventTimeline(spJsonRead* read, TimelineList* list, Json* events) {
    if (!events || events->size == 0) return true;
    spEventTimeline* timeline = spEventTimeline_create(events->size);
    push(list, &timeline->super);
    int i = 0;
    for (Json* frame = events->child; frame; frame = frame->next, i++) {
        const char* name = Json_getString(frame, "name", "");
        spEventData* eventData = spSkeletonData_findEvent(read->data, name);
        if (!eventData) return _spJsonRead_fail(read, "Event not found: ", name);
        spEvent* event = spEvent_create(frameTime(list, frame), eventData);
        event->intValue = Json_getInt(frame, "int", eventData->intValue);
        event->floatValue = Json_getFloat(frame, "float", eventData->floatValue);
        event->stringValue = _spStrDup(Json_getString(frame, "string", eventData->stringValue));
        spEventTimeline_setFrame(timeline, i, event);
    }
    return true;
}

} // namespace

spAnimation* _spJsonRead_animation(spJsonRead* read, Json* map) {
    TimelineList list = {};
    bool ok = readSlotTimelines(read, &list, Json_getItem(map, "slots")) &&
              readBoneTimelines(read, &list, Json_getItem(map, "bones")) &&
              readIkTimelines(read, &list, Json_getItem(map, "ik")) &&
              readTransformTimelines(read, &list, Json_getItem(map, "transform")) &&
              readPathTimelines(read, &list, Json_getItem(map, "paths")) &&
              readDeformTimelines(read, &list, Json_getItem(map, "deform")) &&
              readDrawOrderTimeline(read, &list, Json_getItem(map, "drawOrder")) &&
              readEventTimeline(read, &list, Json_getItem(map, "events"));
    if (!ok) {
        disposeList(&list);
        return nullptr;
    }
    spAnimation* animation = spAnimation_create(map->name ? map->name : "", list.count, list.items);
    animation->duration = list.duration;
    return animation;
}
