#include "parse/ZuParseParticle.h"

#include "basesys/ZuGBase.h"
#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "parse/ZuParse.h"
#include "particle/ZuParticleEffect.h"
#include "particle/ZuParticleEffectorAccelerate.h"
#include "particle/ZuParticleEffectorColor.h"
#include "particle/ZuParticleEffectorPalstance.h"
#include "particle/ZuParticleEffectorScale.h"
#include "particle/ZuParticleEffectorVelocity.h"
#include "particle/ZuParticleEmitterBurst.h"
#include "particle/ZuParticleEmitterCircle.h"
#include "particle/ZuParticleEmitterPoint.h"
#include "particle/ZuParticleEmitterRectangle.h"
#include "particle/ZuParticleEmitterRing.h"
#include "particle/ZuParticleNode.h"
#include "platform/ZuLog.h"
#include "render/texture/ZuTexMgr.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

#include <cmath>
#include <cstdlib>

namespace {

// Every number of a parameter file is kept within this: far beyond any
// useful effect, and small enough that the thousandths of the random draws
// and the angle arithmetic stay inside an int.
const double kNumberLimit = 1e6;

double bounded(double value) {
    if (!std::isfinite(value)) return 0.0;
    return value < -kNumberLimit ? -kNumberLimit : (value > kNumberLimit ? kNumberLimit : value);
}

const rapidjson::Value* member(const rapidjson::Value& object, const char* key) {
    if (!object.IsObject()) return nullptr;
    auto it = object.FindMember(key);
    return it == object.MemberEnd() ? nullptr : &it->value;
}

// Each reader leaves out untouched when the key is absent or of another type.
void readInt(const rapidjson::Value& object, const char* key, int& out) {
    const rapidjson::Value* v = member(object, key);
    if (v && v->IsInt()) out = static_cast<int>(bounded(v->GetInt()));
}
void readNumber(const rapidjson::Value& object, const char* key, float& out) {
    const rapidjson::Value* v = member(object, key);
    if (v && v->IsNumber()) out = static_cast<float>(bounded(v->GetDouble()));
}
// Only a number written with a fraction or an exponent counts: 1 is not
// taken, 1.0 is.
void readFloat(const rapidjson::Value& object, const char* key, float& out) {
    const rapidjson::Value* v = member(object, key);
    if (v && v->IsDouble()) out = static_cast<float>(bounded(v->GetDouble()));
}
void readBool(const rapidjson::Value& object, const char* key, bool& out) {
    const rapidjson::Value* v = member(object, key);
    if (v && v->IsBool()) out = v->GetBool();
}
void readString(const rapidjson::Value& object, const char* key, std::string& out) {
    const rapidjson::Value* v = member(object, key);
    if (v && v->IsString()) out.assign(v->GetString(), v->GetStringLength());
}

bool loadText(ZuAppMain* app, const std::string& path, DataChunk* chunk) {
    ZuFileMgr* files = ZuGBase::fileMgrOf(app);
    return files && files->loadFileContentStr(chunk, path.c_str()) && chunk->getBuffer() && chunk->getSize() > 0;
}

uint8_t alphaByte(int flag) { return static_cast<uint8_t>(flag <= 0 ? 0 : (flag >= 1 ? 255 : flag * 255)); }

} // namespace

ZuParseData* ZuParseParticle::parseParticle(ZuAppMain* app, const rapidjson::Value& value, int, const char*,
                                            const char* directory) {
    if (!value.IsObject()) return nullptr;
    auto* data = new ZuParseParticle(app);
    ZuParse::parseBase(data, value, directory);
    ZuParse::parseEvent(data, value, directory);
    std::string file;
    readString(value, "particle_name", file);
    data->particleFile = file.c_str();
    parseParticleConfig(app, data, directory);
    return data;
}

void ZuParseParticle::parseParticleConfig(ZuAppMain* app, ZuParseParticle* data, const char* directory) {
    if (!data) return;
    // The directory ends with its separator: nothing is added between.
    const std::string path = std::string(directory ? directory : "") + data->particleFile.c_str() + ".json";
    DataChunk chunk;
    if (!loadText(app, path, &chunk)) return;
    parseListText(app, data, chunk.getBuffer(), static_cast<size_t>(chunk.getSize()), directory);
}

void ZuParseParticle::parseListText(ZuAppMain* app, ZuParseParticle* data, const char* text, size_t size,
                                    const char* directory) {
    rapidjson::Document list;
    list.Parse(text, size);
    if (list.HasParseError() || !list.IsArray()) return;
    for (const rapidjson::Value& entry : list.GetArray()) {
        if (!entry.IsObject()) continue;
        ZuParticleConfig config;
        readInt(entry, "id", config.id);
        readString(entry, "emitterName", config.emitterName);
        readString(entry, "particleName", config.particleName);
        if (const rapidjson::Value* pos = member(entry, "emmitterPos")) {
            std::string x, y;
            readString(*pos, "x", x);
            readString(*pos, "y", y);
            config.emitterX = static_cast<float>(bounded(atof(x.c_str())));
            config.emitterY = static_cast<float>(bounded(atof(y.c_str())));
        }
        // An emitter on the face: the standard landmark it follows, as a
        // number or a decimal string; anything outside 0..40 stays on screen.
        if (const rapidjson::Value* index = member(entry, "index")) {
            int value = -1;
            if (index->IsInt()) value = index->GetInt();
            else if (index->IsString()) value = atoi(index->GetString());
            if (value >= 0 && value <= 40) config.bindIndex = value;
            else QZLOGW("particle list %s: landmark index out of 0..40, emitter stays on the screen",
                        data->particleFile.c_str());
        }
        // Names come from the package: a path inside one would reach files
        // outside it.
        if (config.emitterName.find("..") != std::string::npos) {
            QZLOGW("particle list %s: emitter name \"%s\" refused", data->particleFile.c_str(),
                   config.emitterName.c_str());
            continue;
        }
        if (!config.emitterName.empty()) parseParticleMode(app, &config, directory);
        data->configs.push_back(config);
    }
}

void ZuParseParticle::parseParticleMode(ZuAppMain* app, ZuParticleConfig* config, const char* directory) {
    const std::string path = std::string(directory ? directory : "") + config->emitterName + ".json";
    DataChunk chunk;
    if (!loadText(app, path, &chunk)) return;
    parseModeText(config, chunk.getBuffer(), static_cast<size_t>(chunk.getSize()));
}

bool ZuParseParticle::parseModeText(ZuParticleConfig* c, const char* text, size_t size) {
    rapidjson::Document doc;
    doc.Parse(text, size);
    if (doc.HasParseError() || !doc.IsObject()) return false;
    if (const rapidjson::Value* v = member(doc, "alpha")) {
        readInt(*v, "start", c->alphaStart);
        readInt(*v, "end", c->alphaEnd);
    }
    if (const rapidjson::Value* v = member(doc, "scale")) {
        readNumber(*v, "start", c->scaleStart);
        readNumber(*v, "end", c->scaleEnd);
        readNumber(*v, "minimumScaleMultiplier", c->minScaleMultiplier);
    }
    if (const rapidjson::Value* v = member(doc, "color")) {
        readString(*v, "start", c->colorStart);
        readString(*v, "end", c->colorEnd);
    }
    if (const rapidjson::Value* v = member(doc, "speed")) {
        readInt(*v, "start", c->speedStart);
        readInt(*v, "end", c->speedEnd);
        readNumber(*v, "minimumSpeedMultiplier", c->minSpeedMultiplier);
        readNumber(*v, "speed_minimumScaleMultiplier", c->speedMinScaleMultiplier);
    }
    if (const rapidjson::Value* v = member(doc, "acceleration")) {
        readInt(*v, "x", c->accelX);
        readInt(*v, "y", c->accelY);
    }
    bool limit = false;
    if (const rapidjson::Value* v = member(doc, "maxSpeed"); v && v->IsBool()) {
        limit = v->GetBool();
        c->maxSpeed = limit ? 1 : 0;
    }
    if (const rapidjson::Value* v = member(doc, "startRotation")) {
        readInt(*v, "min", c->rotationMin);
        readInt(*v, "max", c->rotationMax);
    }
    readBool(doc, "noRotation", c->noRotation);
    if (const rapidjson::Value* v = member(doc, "rotationSpeed")) {
        readInt(*v, "min", c->rotationSpeedMin);
        readInt(*v, "max", c->rotationSpeedMax);
    }
    if (const rapidjson::Value* v = member(doc, "lifetime")) {
        readInt(*v, "min", c->lifetimeMin);
        readInt(*v, "max", c->lifetimeMax);
    }
    readString(doc, "blendMode", c->blendMode);
    readFloat(doc, "frequency", c->frequency);
    readInt(doc, "emitterLifetime", c->emitterLifetime);
    readInt(doc, "maxParticles", c->maxParticles);
    if (const rapidjson::Value* v = member(doc, "pos")) {
        readInt(*v, "x", c->posX);
        readInt(*v, "y", c->posY);
    }
    readBool(doc, "addAtBack", c->addAtBack);
    readString(doc, "spawnType", c->spawnType);
    if (const rapidjson::Value* v = member(doc, "spawnRect")) {
        readInt(*v, "x", c->rectX);
        readInt(*v, "y", c->rectY);
        readInt(*v, "w", c->rectW);
        readInt(*v, "h", c->rectH);
    }
    if (const rapidjson::Value* v = member(doc, "spawnCircle")) {
        readNumber(*v, "r", c->circleR);
        readNumber(*v, "minR", c->circleMinR);
    }
    readFloat(doc, "particlesPerWave", c->particlesPerWave);
    readFloat(doc, "particleSpacing", c->particleSpacing);
    readFloat(doc, "angleStart", c->angleStart);
    return true;
}

void ZuParseParticle::parseColor(const std::string& text, int rgb[3]) {
    rgb[0] = rgb[1] = rgb[2] = 0;
    const size_t start = text.size() == 7 ? 1 : (text.size() == 6 ? 0 : std::string::npos);
    if (start == std::string::npos) return;
    for (int i = 0; i < 3; ++i) {
        const std::string pair = "0x" + text.substr(start + i * 2, 2);
        rgb[i] = static_cast<int>(strtol(pair.c_str(), nullptr, 16)) & 0xff;
    }
}

ZuParticleEffect* ZuParseParticle::buildEffect(ZuAppMain* app, const ZuParticleConfig& c) {
    auto* effect = new ZuParticleEffect(&app->getRandom());
    effect->zuinit(c.maxParticles);

    ZuParticleEmitterBase* emitter = nullptr;
    if (c.spawnType == "point") {
        auto* e = new ZuParticleEmitterPoint();
        e->setEmitPos(c.emitterX, c.emitterY, 0);
        emitter = e;
    } else if (c.spawnType == "rect") {
        auto* e = new ZuParticleEmitterRectangle();
        e->setEmitRectangle(c.emitterX, c.emitterY, static_cast<float>(c.rectW), static_cast<float>(c.rectH));
        emitter = e;
    } else if (c.spawnType == "circle") {
        auto* e = new ZuParticleEmitterCircle();
        e->setEmitCircle(c.emitterX, c.emitterY, c.circleR);
        emitter = e;
    } else if (c.spawnType == "ring") {
        auto* e = new ZuParticleEmitterRing();
        e->setEmitRing(c.emitterX, c.emitterY, c.circleR);
        emitter = e;
    } else if (c.spawnType == "burst") {
        auto* e = new ZuParticleEmitterBurst();
        e->setEmitBurst(c.emitterX, c.emitterY, c.particlesPerWave, c.particleSpacing, c.angleStart);
        emitter = e;
    } else if (!c.spawnType.empty()) {
        QZLOGW("particle emitter \"%s\": spawnType \"%s\" unknown; it emits nothing", c.emitterName.c_str(),
               c.spawnType.c_str());
    }
    if (emitter) {
        if (c.lifetimeMax <= 0)
            QZLOGW("particle emitter \"%s\": lifetime up to %d seconds; its particles die at birth",
                   c.emitterName.c_str(), c.lifetimeMax);
        emitter->setSelfMaxlifeTime(static_cast<float>(c.emitterLifetime));
        emitter->setParticleMinMaxLife(static_cast<float>(c.lifetimeMin), static_cast<float>(c.lifetimeMax));
        // "frequency" is seconds between particles; 0 or less emits nothing.
        int rate = 0;
        if (c.frequency > 0.0f) {
            const double perSecond = 1.0 / c.frequency;
            rate = perSecond >= kNumberLimit ? static_cast<int>(kNumberLimit) : static_cast<int>(perSecond);
        }
        emitter->setGenerateSpeed(rate);
        emitter->setMinAndMaxRotation(c.rotationMin, c.rotationMax);
        emitter->setMinAndMaxPalstance(c.rotationSpeedMin, c.rotationSpeedMax);
        effect->setEmitter(emitter);
    }

    auto* velocity = new ZuParticleEffectorVelocity();
    if (c.spawnType == "burst") velocity->setMinimumScaleMultiplier(c.speedMinScaleMultiplier);
    if (c.accelX == 0 && c.accelY == 0) velocity->setUnuseAccelerat();
    velocity->setMaximumSpeed(static_cast<float>(c.maxSpeed));
    velocity->setStartAndEndSpeed(static_cast<float>(c.speedStart), static_cast<float>(c.speedEnd));
    auto* accelerate = new ZuParticleEffectorAccelerate();
    accelerate->setMaximumSpeed(static_cast<float>(c.maxSpeed));
    accelerate->setAccelerate(static_cast<float>(c.accelX), static_cast<float>(c.accelY));
    auto* color = new ZuParticleEffectorColor();
    int from[3], to[3];
    parseColor(c.colorStart, from);
    parseColor(c.colorEnd, to);
    color->setSrcColor(from[0], from[1], from[2], alphaByte(c.alphaStart));
    color->setDstColor(to[0], to[1], to[2], alphaByte(c.alphaEnd));
    auto* scale = new ZuParticleEffectorScale();
    scale->setMinimumScaleMultiplier(c.minScaleMultiplier);
    scale->setStartScale(c.scaleStart);
    scale->setEndScale(c.scaleEnd);
    auto* spin = new ZuParticleEffectorPalstance();
    ZuParticleEffectorBase* chain[] = {velocity, accelerate, color, scale, spin};
    for (ZuParticleEffectorBase* effector : chain) {
        effect->addEffector(effector);
        effector->release();
    }
    return effect;
}

void ZuParseParticle::generate(int newResUID, const char* sceneName, char* directory) {
    resUID = newResUID;
    ZuNodeMgr* nodes = nodeMgr();
    if (!nodes || !nodes->getCreator()) return;
    for (uint32_t i = 0; i < configs.size(); ++i) {
        const ZuParticleConfig& c = configs[i];
        auto* node = dynamic_cast<ZuParticleNode*>(nodes->getCreator()->createNodeAsync(
            "ZuParticleNode", sceneName, name.c_str(), static_cast<int>(i) + 1, resUID));
        if (!node) continue;
        ZuParticleEffect* effect = buildEffect(app, c);
        if (!c.emitterName.empty()) {
            const std::string image = std::string(directory ? directory : "") + c.emitterName + ".png";
            ZuTexMgr* textures = app->getGlobalMgr()->getTexMgr();
            if (textures) node->setTexture(textures->getTexture(image.c_str(), true, false));
            node->setBlendMode(c.blendMode.c_str());
        }
        node->setEffect(effect, c.blendMode.c_str());
        if (c.bindIndex >= 0) node->bindToLandmark(c.bindIndex, c.emitterX, c.emitterY);
        node->setpersonID(personID > 0 ? personID : 1);
        node->getTriggers().loadTrigEvents(*this, sceneName, node->getpersonID(), resUID);
        if (triggeredBy.size() > 0) node->holdUntilTriggered();
        node->setresUID(resUID);
        _addNode(node);
    }
}
