#include "spine/spSkeletonJson.h"

#include "platform/ZuLog.h"
#include "spine/Json.h"
#include "spine/ZuSpineHooks.h"
#include "spine/spAllocator.h"
#include "spine/spAnimation.h"
#include "spine/spAtlas.h"
#include "spine/spAtlasAttachmentLoader.h"
#include "spine/spBoneData.h"
#include "spine/spBoundingBoxAttachment.h"
#include "spine/spEventData.h"
#include "spine/spIkConstraintData.h"
#include "spine/spMeshAttachment.h"
#include "spine/spPathAttachment.h"
#include "spine/spPathConstraintData.h"
#include "spine/spRegionAttachment.h"
#include "spine/spSkeletonData.h"
#include "spine/spSkeletonJsonReader.h"
#include "spine/spSkin.h"
#include "spine/spSlotData.h"
#include "spine/spTransformConstraintData.h"

#include <string.h>

spSkeletonJson* spSkeletonJson_createWithLoader(spAttachmentLoader* attachmentLoader) {
    spSkeletonJson* self = SP_NEW(spSkeletonJson);
    self->scale = 1;
    self->attachmentLoader = attachmentLoader;
    return self;
}

spSkeletonJson* spSkeletonJson_create(spAtlas* atlas) {
    spAtlasAttachmentLoader* loader = spAtlasAttachmentLoader_create(atlas);
    spSkeletonJson* self = spSkeletonJson_createWithLoader(&loader->super);
    self->ownsLoader = 1;
    self->application = atlas ? atlas->rendererObject : nullptr;
    return self;
}

void spSkeletonJson_dispose(spSkeletonJson* self) {
    if (!self) return;
    if (self->ownsLoader) spAttachmentLoader_dispose(self->attachmentLoader);
    SP_FREE(self->error);
    SP_FREE(self);
}

bool _spJsonRead_fail(spJsonRead* read, const char* first, const char* second) {
    if (!read->json->error) read->json->error = _spStrConcat(first, second);
    return false;
}

namespace {

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return 15;
}

int childCount(const Json* json) {
    return json ? json->size : 0;
}

// Allocates a pointer array for `count` children (at least one slot so that
// an empty section still has an array).
template <typename T>
T** makeArray(int count) {
    return SP_CALLOC(T*, count > 0 ? count : 1);
}

bool readSkeleton(spJsonRead* read, Json* root) {
    Json* skeleton = Json_getItem(root, "skeleton");
    if (!skeleton) return true;
    read->data->hash = _spStrDup(Json_getString(skeleton, "hash", nullptr));
    read->data->version = _spStrDup(Json_getString(skeleton, "spine", nullptr));
    read->data->width = Json_getFloat(skeleton, "width", 0);
    read->data->height = Json_getFloat(skeleton, "height", 0);
    return true;
}

bool readBones(spJsonRead* read, Json* root) {
    spSkeletonData* data = read->data;
    Json* bones = Json_getItem(root, "bones");
    data->bones = makeArray<spBoneData>(childCount(bones));
    if (!bones) return true;
    for (Json* map = bones->child; map; map = map->next) {
        spBoneData* parent = nullptr;
        const char* parentName = Json_getString(map, "parent", nullptr);
        if (parentName) {
            // Parents must come first, so only the bones read so far count.
            parent = spSkeletonData_findBone(data, parentName);
            if (!parent) return _spJsonRead_fail(read, "Parent bone not found: ", parentName);
        }
        float scale = read->scale;
        spBoneData* bone = spBoneData_create(data->bonesCount, Json_getString(map, "name", ""), parent);
        bone->length = Json_getFloat(map, "length", 0) * scale;
        bone->x = Json_getFloat(map, "x", 0) * scale;
        bone->y = Json_getFloat(map, "y", 0) * scale;
        bone->rotation = Json_getFloat(map, "rotation", 0);
        bone->scaleX = Json_getFloat(map, "scaleX", 1);
        bone->scaleY = Json_getFloat(map, "scaleY", 1);
        bone->shearX = Json_getFloat(map, "shearX", 0);
        bone->shearY = Json_getFloat(map, "shearY", 0);
        bone->inheritRotation = Json_getInt(map, "inheritRotation", 1);
        bone->inheritScale = Json_getInt(map, "inheritScale", 1);
        data->bones[data->bonesCount++] = bone;
    }
    return true;
}

bool readSlots(spJsonRead* read, Json* root) {
    spSkeletonData* data = read->data;
    Json* slots = Json_getItem(root, "slots");
    data->slots = makeArray<spSlotData>(childCount(slots));
    if (!slots) return true;
    for (Json* map = slots->child; map; map = map->next) {
        const char* boneName = Json_getString(map, "bone", "");
        spBoneData* bone = spSkeletonData_findBone(data, boneName);
        if (!bone) return _spJsonRead_fail(read, "Slot bone not found: ", boneName);
        spSlotData* slot = spSlotData_create(data->slotsCount, Json_getString(map, "name", ""), bone);
        const char* color = Json_getString(map, "color", nullptr);
        if (color) _spJsonRead_color(color, &slot->r, &slot->g, &slot->b, &slot->a);
        Json* attachment = Json_getItem(map, "attachment");
        if (attachment && attachment->type == Json_String) spSlotData_setAttachmentName(slot, attachment->valueString);
        const char* blend = Json_getString(map, "blend", "normal");
        if (strcmp(blend, "additive") == 0) slot->blendMode = SP_BLEND_MODE_ADDITIVE;
        else if (strcmp(blend, "multiply") == 0) slot->blendMode = SP_BLEND_MODE_MULTIPLY;
        else if (strcmp(blend, "screen") == 0) slot->blendMode = SP_BLEND_MODE_SCREEN;
        data->slots[data->slotsCount++] = slot;
    }
    return true;
}

// The "bones" array of a constraint: names of bones, each of which must exist.
bool readConstraintBones(spJsonRead* read, Json* map, const char* notFound, int* count, spBoneData*** bones) {
    Json* names = Json_getItem(map, "bones");
    *bones = makeArray<spBoneData>(childCount(names));
    *count = 0;
    if (!names) return true;
    for (Json* name = names->child; name; name = name->next) {
        const char* boneName = name->type == Json_String ? name->valueString : "";
        spBoneData* bone = spSkeletonData_findBone(read->data, boneName);
        if (!bone) return _spJsonRead_fail(read, notFound, boneName);
        (*bones)[(*count)++] = bone;
    }
    return true;
}

bool readIkConstraints(spJsonRead* read, Json* root) {
    spSkeletonData* data = read->data;
    Json* list = Json_getItem(root, "ik");
    data->ikConstraints = makeArray<spIkConstraintData>(childCount(list));
    if (!list) return true;
    for (Json* map = list->child; map; map = map->next) {
        spIkConstraintData* constraint = spIkConstraintData_create(Json_getString(map, "name", ""));
        data->ikConstraints[data->ikConstraintsCount++] = constraint;
        if (!readConstraintBones(read, map, "IK bone not found: ", &constraint->bonesCount, &constraint->bones))
            return false;
        const char* targetName = Json_getString(map, "target", "");
        constraint->target = spSkeletonData_findBone(data, targetName);
        if (!constraint->target) return _spJsonRead_fail(read, "Target bone not found: ", targetName);
        constraint->bendDirection = Json_getInt(map, "bendPositive", 1) ? 1 : -1;
        constraint->mix = Json_getFloat(map, "mix", 1);
    }
    return true;
}

bool readTransformConstraints(spJsonRead* read, Json* root) {
    spSkeletonData* data = read->data;
    Json* list = Json_getItem(root, "transform");
    data->transformConstraints = makeArray<spTransformConstraintData>(childCount(list));
    if (!list) return true;
    for (Json* map = list->child; map; map = map->next) {
        spTransformConstraintData* constraint = spTransformConstraintData_create(Json_getString(map, "name", ""));
        data->transformConstraints[data->transformConstraintsCount++] = constraint;
        if (!readConstraintBones(read, map, "Transform bone not found: ", &constraint->bonesCount,
                                 &constraint->bones))
            return false;
        const char* targetName = Json_getString(map, "target", "");
        constraint->target = spSkeletonData_findBone(data, targetName);
        if (!constraint->target) return _spJsonRead_fail(read, "Target bone not found: ", targetName);
        constraint->offsetRotation = Json_getFloat(map, "rotation", 0);
        constraint->offsetX = Json_getFloat(map, "x", 0) * read->scale;
        constraint->offsetY = Json_getFloat(map, "y", 0) * read->scale;
        constraint->offsetScaleX = Json_getFloat(map, "scaleX", 0);
        constraint->offsetScaleY = Json_getFloat(map, "scaleY", 0);
        constraint->offsetShearY = Json_getFloat(map, "shearY", 0);
        constraint->rotateMix = Json_getFloat(map, "rotateMix", 1);
        constraint->translateMix = Json_getFloat(map, "translateMix", 1);
        constraint->scaleMix = Json_getFloat(map, "scaleMix", 1);
        constraint->shearMix = Json_getFloat(map, "shearMix", 1);
    }
    return true;
}

bool readPathConstraints(spJsonRead* read, Json* root) {
    spSkeletonData* data = read->data;
    Json* list = Json_getItem(root, "path");
    data->pathConstraints = makeArray<spPathConstraintData>(childCount(list));
    if (!list) return true;
    for (Json* map = list->child; map; map = map->next) {
        spPathConstraintData* constraint = spPathConstraintData_create(Json_getString(map, "name", ""));
        data->pathConstraints[data->pathConstraintsCount++] = constraint;
        if (!readConstraintBones(read, map, "Path bone not found: ", &constraint->bonesCount, &constraint->bones))
            return false;
        const char* targetName = Json_getString(map, "target", "");
        constraint->target = spSkeletonData_findSlot(data, targetName);
        if (!constraint->target) return _spJsonRead_fail(read, "Target slot not found: ", targetName);

        const char* mode = Json_getString(map, "positionMode", "percent");
        constraint->positionMode = strcmp(mode, "fixed") == 0 ? SP_POSITION_MODE_FIXED : SP_POSITION_MODE_PERCENT;
        mode = Json_getString(map, "spacingMode", "length");
        if (strcmp(mode, "fixed") == 0) constraint->spacingMode = SP_SPACING_MODE_FIXED;
        else if (strcmp(mode, "percent") == 0) constraint->spacingMode = SP_SPACING_MODE_PERCENT;
        else constraint->spacingMode = SP_SPACING_MODE_LENGTH;
        mode = Json_getString(map, "rotateMode", "tangent");
        if (strcmp(mode, "chain") == 0) constraint->rotateMode = SP_ROTATE_MODE_CHAIN;
        else if (strcmp(mode, "chainScale") == 0) constraint->rotateMode = SP_ROTATE_MODE_CHAIN_SCALE;
        else constraint->rotateMode = SP_ROTATE_MODE_TANGENT;

        constraint->offsetRotation = Json_getFloat(map, "rotation", 0);
        constraint->position = Json_getFloat(map, "position", 0);
        if (constraint->positionMode == SP_POSITION_MODE_FIXED) constraint->position *= read->scale;
        constraint->spacing = Json_getFloat(map, "spacing", 0);
        if (constraint->spacingMode == SP_SPACING_MODE_LENGTH || constraint->spacingMode == SP_SPACING_MODE_FIXED)
            constraint->spacing *= read->scale;
        constraint->rotateMix = Json_getFloat(map, "rotateMix", 1);
        constraint->translateMix = Json_getFloat(map, "translateMix", 1);
    }
    return true;
}

// Copies a numeric array into a fresh block, each value times `scale`.
float* readFloats(Json* array, int count, float scale) {
    float* values = SP_MALLOC(float, count > 0 ? count : 1);
    int i = 0;
    for (Json* value = array ? array->child : nullptr; value && i < count; value = value->next)
        values[i++] = value->valueFloat * scale;
    while (i < count) values[i++] = 0;
    return values;
}

// "vertices" of a vertex attachment with `verticesLength` = 2 x vertex
// count: plain x, y pairs when the array has exactly that many values,
// otherwise per vertex a bone count, then bone index, x, y, weight per bone.
bool readVertices(spJsonRead* read, Json* map, spVertexAttachment* attachment, long long verticesLength,
                  const char* name) {
    Json* vertices = Json_getItem(map, "vertices");
    int entries = childCount(vertices);
    if (verticesLength < 0 || verticesLength > 0x3fffffff)
        return _spJsonRead_fail(read, "Invalid vertices in attachment: ", name);
    attachment->worldVerticesLength = (int)verticesLength;
    if (entries == verticesLength) {
        attachment->verticesCount = entries;
        attachment->vertices = readFloats(vertices, entries, read->scale);
        return true;
    }

    // Weighted: every value is used at most once, so the array's length
    // bounds both output arrays.
    int* bones = SP_MALLOC(int, entries > 0 ? entries : 1);
    float* weights = SP_MALLOC(float, entries > 0 ? entries : 1);
    attachment->bones = bones;
    attachment->vertices = weights;
    int bonesCount = 0, weightsCount = 0;
    Json* value = vertices ? vertices->child : nullptr;
    int vertexCount = (int)(verticesLength / 2);
    for (int v = 0; v < vertexCount; v++) {
        if (!value) return _spJsonRead_fail(read, "Invalid vertices in attachment: ", name);
        int boneCount = value->valueInt;
        value = value->next;
        if (boneCount < 0 || boneCount > entries) return _spJsonRead_fail(read, "Invalid vertices in attachment: ", name);
        bones[bonesCount++] = boneCount;
        for (int b = 0; b < boneCount; b++) {
            Json* index = value;
            Json* x = index ? index->next : nullptr;
            Json* y = x ? x->next : nullptr;
            Json* weight = y ? y->next : nullptr;
            if (!weight) return _spJsonRead_fail(read, "Invalid vertices in attachment: ", name);
            if (index->valueInt < 0 || index->valueInt >= read->data->bonesCount)
                return _spJsonRead_fail(read, "Invalid vertices in attachment: ", name);
            bones[bonesCount++] = index->valueInt;
            weights[weightsCount++] = x->valueFloat * read->scale;
            weights[weightsCount++] = y->valueFloat * read->scale;
            weights[weightsCount++] = weight->valueFloat;
            value = weight->next;
        }
    }
    attachment->bonesCount = bonesCount;
    attachment->verticesCount = weightsCount;
    return true;
}

bool addLinkedMesh(spJsonRead* read, spMeshAttachment* mesh, const char* skin, int slotIndex, const char* parent) {
    if (read->linkedMeshesCount == read->linkedMeshesCapacity) {
        int capacity = read->linkedMeshesCapacity ? read->linkedMeshesCapacity * 2 : 8;
        spLinkedMeshRef* grown = SP_MALLOC(spLinkedMeshRef, capacity);
        if (read->linkedMeshesCount)
            memcpy(grown, read->linkedMeshes, sizeof(spLinkedMeshRef) * read->linkedMeshesCount);
        SP_FREE(read->linkedMeshes);
        read->linkedMeshes = grown;
        read->linkedMeshesCapacity = capacity;
    }
    spLinkedMeshRef* ref = &read->linkedMeshes[read->linkedMeshesCount++];
    ref->mesh = mesh;
    ref->skin = skin;
    ref->slotIndex = slotIndex;
    ref->parent = parent;
    return true;
}

bool readMesh(spJsonRead* read, Json* map, spMeshAttachment* mesh, int slotIndex, const char* name) {
    float scale = read->scale;
    const char* color = Json_getString(map, "color", nullptr);
    if (color) _spJsonRead_color(color, &mesh->r, &mesh->g, &mesh->b, &mesh->a);
    mesh->width = Json_getFloat(map, "width", 0) * scale;
    mesh->height = Json_getFloat(map, "height", 0) * scale;

    const char* parent = Json_getString(map, "parent", nullptr);
    if (parent) {
        mesh->inheritDeform = Json_getInt(map, "deform", 1);
        return addLinkedMesh(read, mesh, Json_getString(map, "skin", nullptr), slotIndex, parent);
    }

    Json* uvs = Json_getItem(map, "uvs");
    int uvsCount = childCount(uvs);
    mesh->regionUVs = readFloats(uvs, uvsCount, 1);
    if (!readVertices(read, map, &mesh->super, uvsCount, name)) return false;

    Json* triangles = Json_getItem(map, "triangles");
    mesh->trianglesCount = childCount(triangles);
    mesh->triangles = SP_MALLOC(unsigned short, mesh->trianglesCount > 0 ? mesh->trianglesCount : 1);
    int vertexCount = uvsCount / 2, i = 0;
    for (Json* value = triangles ? triangles->child : nullptr; value; value = value->next) {
        // Indices must name a vertex; renderers read vertices through them.
        if (value->valueInt < 0 || value->valueInt >= vertexCount)
            return _spJsonRead_fail(read, "Invalid triangles in attachment: ", name);
        mesh->triangles[i++] = (unsigned short)value->valueInt;
    }

    mesh->hullLength = Json_getInt(map, "hull", 0);
    Json* edges = Json_getItem(map, "edges");
    mesh->edgesCount = childCount(edges);
    mesh->edges = SP_MALLOC(int, mesh->edgesCount > 0 ? mesh->edgesCount : 1);
    i = 0;
    for (Json* value = edges ? edges->child : nullptr; value; value = value->next) mesh->edges[i++] = value->valueInt;

    spMeshAttachment_updateUVs(mesh);
    return true;
}

bool readAttachment(spJsonRead* read, spSkin* skin, int slotIndex, Json* map) {
    float scale = read->scale;
    const char* name = Json_getString(map, "name", map->name);
    const char* path = Json_getString(map, "path", name);
    const char* typeName = Json_getString(map, "type", "region");
    spAttachmentType type;
    if (strcmp(typeName, "region") == 0) type = SP_ATTACHMENT_REGION;
    else if (strcmp(typeName, "mesh") == 0) type = SP_ATTACHMENT_MESH;
    else if (strcmp(typeName, "linkedmesh") == 0) type = SP_ATTACHMENT_LINKED_MESH;
    else if (strcmp(typeName, "boundingbox") == 0) type = SP_ATTACHMENT_BOUNDING_BOX;
    else if (strcmp(typeName, "path") == 0) type = SP_ATTACHMENT_PATH;
    else return _spJsonRead_fail(read, "Unknown attachment type: ", typeName);

    spAttachmentLoader* loader = read->json->attachmentLoader;
    spAttachment* attachment = spAttachmentLoader_createAttachment(loader, skin, type, name, path);
    if (!attachment) {
        if (loader->error1) return _spJsonRead_fail(read, loader->error1, loader->error2);
        return true;  // the loader chose to leave this one out
    }
    // The skin owns it from here, so a failure below releases it with the skin.
    spSkin_addAttachment(skin, slotIndex, map->name, attachment);

    switch (type) {
    case SP_ATTACHMENT_REGION: {
        if (attachment->type != SP_ATTACHMENT_REGION) break;
        spRegionAttachment* region = (spRegionAttachment*)attachment;
        region->path = _spStrDup(path);
        region->x = Json_getFloat(map, "x", 0) * scale;
        region->y = Json_getFloat(map, "y", 0) * scale;
        region->scaleX = Json_getFloat(map, "scaleX", 1);
        region->scaleY = Json_getFloat(map, "scaleY", 1);
        region->rotation = Json_getFloat(map, "rotation", 0);
        region->width = Json_getFloat(map, "width", 32) * scale;
        region->height = Json_getFloat(map, "height", 32) * scale;
        const char* color = Json_getString(map, "color", nullptr);
        if (color) _spJsonRead_color(color, &region->r, &region->g, &region->b, &region->a);
        spRegionAttachment_updateOffset(region);
        return true;
    }
    case SP_ATTACHMENT_MESH:
    case SP_ATTACHMENT_LINKED_MESH: {
        if (attachment->type != SP_ATTACHMENT_MESH) break;
        spMeshAttachment* mesh = (spMeshAttachment*)attachment;
        mesh->path = _spStrDup(path);
        return readMesh(read, map, mesh, slotIndex, name);
    }
    case SP_ATTACHMENT_BOUNDING_BOX: {
        if (attachment->type != SP_ATTACHMENT_BOUNDING_BOX) break;
        long long vertexCount = Json_getInt(map, "vertexCount", 0);
        return readVertices(read, map, (spVertexAttachment*)attachment, vertexCount * 2, name);
    }
    case SP_ATTACHMENT_PATH: {
        if (attachment->type != SP_ATTACHMENT_PATH) break;
        spPathAttachment* path = (spPathAttachment*)attachment;
        path->closed = Json_getInt(map, "closed", 0);
        path->constantSpeed = Json_getInt(map, "constantSpeed", 1);
        long long vertexCount = Json_getInt(map, "vertexCount", 0);
        if (!readVertices(read, map, &path->super, vertexCount * 2, name)) return false;
        Json* lengths = Json_getItem(map, "lengths");
        path->lengthsCount = childCount(lengths);
        path->lengths = readFloats(lengths, path->lengthsCount, scale);
        return true;
    }
    }
    // A custom loader returned a different kind of attachment than asked for.
    return _spJsonRead_fail(read, "Unexpected attachment type from loader: ", name);
}

bool readSkins(spJsonRead* read, Json* root) {
    spSkeletonData* data = read->data;
    Json* skins = Json_getItem(root, "skins");
    data->skins = makeArray<spSkin>(childCount(skins));
    if (!skins) return true;
    for (Json* skinMap = skins->child; skinMap; skinMap = skinMap->next) {
        const char* skinName = skinMap->name ? skinMap->name : Json_getString(skinMap, "name", "");
        spSkin* skin = spSkin_create(skinName);
        data->skins[data->skinsCount++] = skin;
        if (strcmp(skin->name, "default") == 0) data->defaultSkin = skin;
        for (Json* slotMap = skinMap->child; slotMap; slotMap = slotMap->next) {
            const char* slotName = slotMap->name ? slotMap->name : "";
            int slotIndex = spSkeletonData_findSlotIndex(data, slotName);
            if (slotIndex < 0) return _spJsonRead_fail(read, "Slot not found: ", slotName);
            for (Json* attachmentMap = slotMap->child; attachmentMap; attachmentMap = attachmentMap->next) {
                if (!attachmentMap->name) continue;
                if (!readAttachment(read, skin, slotIndex, attachmentMap)) return false;
            }
        }
    }
    return true;
}

bool isPendingLink(const spJsonRead* read, const spAttachment* attachment, const bool* resolved) {
    for (int i = 0; i < read->linkedMeshesCount; i++)
        if (!resolved[i] && &read->linkedMeshes[i].mesh->super.super == attachment) return true;
    return false;
}

// Linked meshes take their geometry from a parent that may be read later
// (or be a linked mesh itself), so they are joined after all skins.
bool resolveLinkedMeshes(spJsonRead* read) {
    int count = read->linkedMeshesCount;
    if (count == 0) return true;
    bool* resolved = SP_CALLOC(bool, count);
    int remaining = count;
    bool ok = true;
    while (ok && remaining > 0) {
        int progress = 0;
        for (int i = 0; i < count && ok; i++) {
            if (resolved[i]) continue;
            const spLinkedMeshRef* ref = &read->linkedMeshes[i];
            spSkin* skin = ref->skin ? spSkeletonData_findSkin(read->data, ref->skin) : read->data->defaultSkin;
            if (!skin) {
                ok = _spJsonRead_fail(read, "Skin not found: ", ref->skin ? ref->skin : "default");
                break;
            }
            spAttachment* parent = spSkin_getAttachment(skin, ref->slotIndex, ref->parent);
            if (!parent || parent->type != SP_ATTACHMENT_MESH) {
                ok = _spJsonRead_fail(read, "Parent mesh not found: ", ref->parent);
                break;
            }
            if (isPendingLink(read, parent, resolved)) continue;
            spMeshAttachment_setParentMesh(ref->mesh, (spMeshAttachment*)parent);
            spMeshAttachment_updateUVs(ref->mesh);
            resolved[i] = true;
            remaining--;
            progress++;
        }
        if (ok && progress == 0) {
            // Only cycles are left.
            for (int i = 0; i < count; i++) {
                if (!resolved[i]) {
                    ok = _spJsonRead_fail(read, "Parent mesh not found: ", read->linkedMeshes[i].parent);
                    break;
                }
            }
        }
    }
    SP_FREE(resolved);
    return ok;
}

bool readEvents(spJsonRead* read, Json* root) {
    spSkeletonData* data = read->data;
    Json* events = Json_getItem(root, "events");
    data->events = makeArray<spEventData>(childCount(events));
    if (!events) return true;
    for (Json* map = events->child; map; map = map->next) {
        spEventData* event = spEventData_create(map->name ? map->name : "");
        event->intValue = Json_getInt(map, "int", 0);
        event->floatValue = Json_getFloat(map, "float", 0);
        event->stringValue = _spStrDup(Json_getString(map, "string", nullptr));
        data->events[data->eventsCount++] = event;
    }
    return true;
}

bool readAnimations(spJsonRead* read, Json* root) {
    spSkeletonData* data = read->data;
    Json* animations = Json_getItem(root, "animations");
    data->animations = makeArray<spAnimation>(childCount(animations));
    if (!animations) return true;
    for (Json* map = animations->child; map; map = map->next) {
        spAnimation* animation = _spJsonRead_animation(read, map);
        if (!animation) return false;
        data->animations[data->animationsCount++] = animation;
    }
    return true;
}

spSkeletonData* readDocument(spSkeletonJson* self, Json* root) {
    spJsonRead read = {};
    read.json = self;
    read.data = spSkeletonData_create();
    read.scale = self->scale;
    bool ok = readSkeleton(&read, root) && readBones(&read, root) && readSlots(&read, root) &&
              readIkConstraints(&read, root) && readTransformConstraints(&read, root) &&
              readPathConstraints(&read, root) && readSkins(&read, root) && resolveLinkedMeshes(&read) &&
              readEvents(&read, root) && readAnimations(&read, root);
    SP_FREE(read.linkedMeshes);
    if (!ok) {
        spSkeletonData_dispose(read.data);
        return nullptr;
    }
    return read.data;
}

void clearError(spSkeletonJson* self) {
    SP_FREE(self->error);
    self->error = nullptr;
}

} // namespace

void _spJsonRead_color(const char* text, float* r, float* g, float* b, float* a) {
    float* channels[4] = {r, g, b, a};
    size_t length = strlen(text);
    for (int i = 0; i < 4; i++) {
        int high = (size_t)(i * 2) < length ? hexDigit(text[i * 2]) : 15;
        int low = (size_t)(i * 2 + 1) < length ? hexDigit(text[i * 2 + 1]) : 15;
        *channels[i] = (high * 16 + low) / 255.0f;
    }
}

spSkeletonData* spSkeletonJson_readSkeletonDataWithLength(spSkeletonJson* self, const char* json, int length) {
    clearError(self);
    Json* root = Json_createWithLength(json, length);
    if (!root) {
        self->error = _spStrConcat("Invalid skeleton JSON: ", Json_getError());
        QZLOGE("Spine: %s", self->error);
        return nullptr;
    }
    spSkeletonData* data = readDocument(self, root);
    Json_dispose(root);
    if (!data) QZLOGE("Spine: %s", self->error ? self->error : "skeleton read failed");
    return data;
}

spSkeletonData* spSkeletonJson_readSkeletonData(spSkeletonJson* self, const char* json) {
    if (!json) {
        clearError(self);
        self->error = _spStrDup("Invalid skeleton JSON: No text");
        return nullptr;
    }
    size_t length = strlen(json);
    if (length > 0x7fffffff) length = 0x7fffffff;
    return spSkeletonJson_readSkeletonDataWithLength(self, json, (int)length);
}

spSkeletonData* spSkeletonJson_readSkeletonDataFile(spSkeletonJson* self, const char* path) {
    int length = 0;
    char* text = _spUtil_readFile(self->application, path, &length);
    if (!text) {
        clearError(self);
        self->error = _spStrConcat("Unable to read skeleton file: ", path);
        QZLOGE("Spine: %s", self->error);
        return nullptr;
    }
    spSkeletonData* data = spSkeletonJson_readSkeletonDataWithLength(self, text, length);
    SP_FREE(text);
    return data;
}
