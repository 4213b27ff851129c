#include "person/ZuPerson.h"

#include "basesys/ZuGBase.h"
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/StanderFace.h"
#include "data/ZuDataGenAS.h"
#include "data/ZuDataGenFP.h"
#include "data/ZuDataGenST.h"
#include "data/ZuDataGenSelf.h"
#include "data/ZuDataMgr.h"
#include "data/ZuMeshDataMgr.h"
#include "person/ZuPersonAnimojiMgr.h"
#include "person/ZuPersonCopyTarget.h"
#include "person/ZuPersonExpressionExt.h"
#include "person/ZuPersonTracker.h"
#include "platform/ZuLog.h"

#include <algorithm>
#include <cstring>

ZuPerson::ZuPerson() {
    // Allocated once for the person's life: nothing per frame.
    faceData = new float[kMaxFaceValues]();
    tracker = new ZuPersonTracker();
    expression = new ZuPersonExpressionExt();
    copyTarget = new ZuPersonCopyTarget(targetFaceData, kAsPointCount, standardTargetPoints, kTargetValues / 2);
}

ZuPerson::~ZuPerson() {
    if (app) destroy();
    delete[] faceData;
    faceData = nullptr;
    qzSafeRelease(tracker);
    qzSafeRelease(expression);
    qzSafeRelease(animojiMgr);
    delete copyTarget;
    copyTarget = nullptr;
}

void ZuPerson::init(ZuAppMain* application) {
    app = application;
    tracker->init(application);
    expression->init(application);
    qzSafeRelease(animojiMgr);
    animojiMgr = new ZuPersonAnimojiMgr(application);
}

void ZuPerson::destroy() {
    setDetectType(DETECTTYPE_NONE);
    tracker->destroy();
    if (animojiMgr) animojiMgr->destroy();
    qzSafeRelease(animojiMgr);
    app = nullptr;
}

int ZuPerson::pointCountOf(DETECTTYPE type) {
    switch (type) {
    case DETECTTYPE_AS: return PERSON_AS_DATA::kPointCount;
    case DETECTTYPE_ST:
    case DETECTTYPE_FP: return PERSON_FP_DATA::kPointCount;
    case DETECTTYPE_SELF: return PERSON_SELF_DATA::kPointCount;
    default: return 0;
    }
}

const char* ZuPerson::standardFaceNameOf(DETECTTYPE type) {
    switch (type) {
    case DETECTTYPE_AS: return "standerface_as_simplify";
    case DETECTTYPE_ST: return "standerface_st_simplify";
    case DETECTTYPE_FP: return "standerface_fp_simplify";
    default: return nullptr; // the Self back end has no standard face
    }
}

ZuDataGenerate* ZuPerson::generatorOf(DETECTTYPE type) const {
    ZuDataMgr* data = ZuGBase::dataMgrOf(app);
    if (!data) return nullptr;
    switch (type) {
    case DETECTTYPE_AS: return data->getDataGenAS();
    case DETECTTYPE_ST: return data->getDataGenST();
    case DETECTTYPE_FP: return data->getDataGenFP();
    case DETECTTYPE_SELF: return data->getDataGenSelf();
    default: return nullptr;
    }
}

void ZuPerson::setDetectType(DETECTTYPE type) {
    if (type == detectType) return;
    if (animojiMgr) animojiMgr->init(type);
    // While a generator is telling this person it holds its listener lock,
    // which a registration would take again; the person is already on it.
    if (!listening) {
        if (ZuDataGenerate* old = generatorOf(detectType)) old->unregistListenFunc(this, &ZuPerson::listenData);
    }
    detectType = type;
    if (type == DETECTTYPE_NONE) return;
    facePtNum = pointCountOf(type);
    if (!listening) {
        if (ZuDataGenerate* gen = generatorOf(type)) gen->registListenFunc(this, &ZuPerson::listenData);
    }
}

void ZuPerson::listenData(ZuObject* source) {
    listening = true;
    if (auto* as = dynamic_cast<ZuDataGenAS*>(source)) {
        _listenData_AS(as);
    } else if (auto* fp = dynamic_cast<ZuDataGenFP*>(source)) {
        _listenData_FP(fp);
    } else if (auto* self = dynamic_cast<ZuDataGenSelf*>(source)) {
        _listenData_self(self);
    } else if (auto* st = dynamic_cast<ZuDataGenST*>(source)) {
        _listenData_ST(st);
    } else {
        QZLOGW("ZuPerson::listenData: source is no face generator, ignored");
    }
    listening = false;
}

template <class Record> void ZuPerson::takeRecord(const Record& record) {
    const int values = std::min(facePtNum, static_cast<int>(Record::kPointCount)) * 2;
    if (record.valid) {
        existState = 1;
        yaw = record.yaw;
        pitch = record.pitch;
        roll = record.roll;
        rectLeft = static_cast<float>(record.left);
        rectRight = static_cast<float>(record.right);
        rectTop = static_cast<float>(record.top);
        rectBottom = static_cast<float>(record.bottom);
        std::memcpy(faceData, record.facePoints, sizeof(float) * values);
        return;
    }
    existState = 0;
    yaw = pitch = roll = 0.0f;
    rectLeft = rectRight = rectTop = rectBottom = 0.0f;
    // Effects keep drawing on a stand-by face centred in the frame.
    if (const StanderFace* face = standardFace()) {
        convert_standerface(face, faceData);
    } else {
        std::memcpy(faceData, record.facePoints, sizeof(float) * values);
    }
}

void ZuPerson::_listenData_AS(ZuDataGenAS* gen) {
    setDetectType(DETECTTYPE_AS);
    const PERSON_AS_DATA* record = gen->getData(personID);
    if (!record) return;
    takeRecord(*record);
    if (record->valid) {
        std::memcpy(eyeData, record->eyeData, sizeof(eyeData));
        std::memcpy(matM, record->matM, sizeof(matM));
        std::memcpy(matV, record->matV, sizeof(matV));
        std::memcpy(matP, record->matP, sizeof(matP));
        for (int i = 0; i < kAsPointCount; ++i) {
            face3dData[i * 3] = record->face3d[i].x;
            face3dData[i * 3 + 1] = record->face3d[i].y;
            face3dData[i * 3 + 2] = record->face3d[i].z;
        }
        std::memcpy(targetFaceData, record->facePoints, sizeof(record->facePoints));
        if (copyTargetEnabled) _modifyPointToPerson_AS(copyTargetName.c_str());
    }
    ZuRect r = rect();
    tracker->track_as(sceneName.c_str(), faceData, &r, personID);
    trackExpression(&r);
    noticeOwnListeners();
}

void ZuPerson::_listenData_ST(ZuDataGenST* gen) {
    setDetectType(DETECTTYPE_ST);
    const PERSON_FP_DATA* record = gen->getData(personID);
    if (!record) return;
    takeRecord(*record);
    ZuRect r = rect();
    tracker->track_st(sceneName.c_str(), faceData, &r, personID);
    trackExpression(&r);
    noticeOwnListeners();
}

void ZuPerson::_listenData_FP(ZuDataGenFP* gen) {
    setDetectType(DETECTTYPE_FP);
    // FP keeps its faces per scene.
    const PERSON_FP_DATA* record = gen->getData(sceneName.c_str(), personID);
    if (!record) return;
    takeRecord(*record);
    ZuRect r = rect();
    tracker->track_fp(sceneName.c_str(), faceData, &r, personID);
    trackExpression(&r);
    trackAnimoji();
    noticeOwnListeners();
}

void ZuPerson::_listenData_self(ZuDataGenSelf* gen) {
    setDetectType(DETECTTYPE_SELF);
    const PERSON_SELF_DATA* record = gen->getData(personID);
    if (!record) return;
    takeRecord(*record);
    if (record->valid) other = record->other;
    ZuRect r = rect();
    tracker->track_self(sceneName.c_str(), faceData, &r, personID);
    trackExpression(&r);
    noticeOwnListeners();
}

void ZuPerson::trackExpression(ZuRect* r) {
    // Expressions are judged on a real face only, not on the stand-by one.
    if (existState != 1) return;
    ZuConfig* config = ZuGBase::configOf(app);
    const bool mirror = config && config->getCamera(sceneName.c_str())->mirror;
    expression->setSceneName(sceneName.c_str());
    expression->trackExpression(faceData, facePtNum * 2, r, roll, yaw, pitch, personID, mirror);
}

void ZuPerson::trackAnimoji() {
    // Like expressions, blend shapes follow a real face only.
    if (existState != 1 || !animojiMgr) return;
    ZuConfig* config = ZuGBase::configOf(app);
    const int rotation = config ? config->getCamera(sceneName.c_str())->angle : 0;
    animojiMgr->detect(faceData, rotation, roll, yaw, pitch);
}

void ZuPerson::noticeOwnListeners() {
    ZuLockGuard guard(m_lock);
    _notice(0.0f);
}

const StanderFace* ZuPerson::standardFace() const {
    const char* name = standardFaceNameOf(detectType);
    ZuMeshDataMgr* meshes = ZuGBase::meshDataMgrOf(app);
    return name && meshes ? meshes->getStanderFace(name) : nullptr;
}

void ZuPerson::convert_standerface(const StanderFace* face, float* out) const {
    ZuConfig* config = ZuGBase::configOf(app);
    if (!config) return;
    const Camera* camera = config->getCamera(sceneName.c_str());
    // Landmarks live in the upright frame: a portrait camera's sides swap.
    const bool turned = camera->angle == 90 || camera->angle == 270;
    const float width = static_cast<float>(turned ? camera->height : camera->width);
    const float height = static_cast<float>(turned ? camera->width : camera->height);
    const float dx = (width - static_cast<float>(face->design_img_width)) / 2.0f;
    const float dy = (height - static_cast<float>(face->design_img_height)) / 2.0f;
    const int points = std::min(facePtNum, StanderFace::kMaxValues / 2);
    for (int i = 0; i < points; ++i) {
        out[i * 2] = face->data[i * 2] + dx;
        out[i * 2 + 1] = face->data[i * 2 + 1] + dy;
    }
}

void ZuPerson::setCopyTarget(const char* name) {
    copyTargetName = name ? name : "";
    copyTargetMissingLogged = false;
}

void ZuPerson::_modifyPointToPerson_AS(const char* name) {
    ZuMeshDataMgr* meshes = ZuGBase::meshDataMgrOf(app);
    const StanderFace* face = meshes && name ? meshes->getStanderFace(name) : nullptr;
    if (!face) {
        if (!copyTargetMissingLogged)
            QZLOGW("person %d: copy target \"%s\" is no standard face, the live landmarks stay", personID,
                   name ? name : "");
        copyTargetMissingLogged = true;
        return;
    }
    copyTarget->apply(*face, roll, rectLeft, rectRight);
}

float ZuPerson::getFaceDataX(int i) const {
    if (i < 0 || i >= facePtNum) return 0.0f;
    return copyTargetEnabled ? targetFaceData[i * 2] : faceData[i * 2];
}

float ZuPerson::getFaceDataY(int i) const {
    if (i < 0 || i >= facePtNum) return 0.0f;
    return copyTargetEnabled ? targetFaceData[i * 2 + 1] : faceData[i * 2 + 1];
}

float ZuPerson::getStandardFaceDataX(int i) const {
    const StanderFace* face = standardFace();
    if (!face || i < 0 || i >= std::min(face->facepoints_count, StanderFace::kMaxValues / 2)) return 0.0f;
    return face->data[i * 2];
}

float ZuPerson::getStandardFaceDataY(int i) const {
    const StanderFace* face = standardFace();
    if (!face || i < 0 || i >= std::min(face->facepoints_count, StanderFace::kMaxValues / 2)) return 0.0f;
    return face->data[i * 2 + 1];
}
