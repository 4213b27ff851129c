#include "basesys/ZuConfig.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "platform/ZuLog.h"

#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <string>

namespace {

// Reads typed keys out of one JSON object, and remembers the keys that were
// there with the wrong type so that all of them go into one log line.
class KeyReader {
public:
    KeyReader(const rapidjson::Value& object, const char* section, std::string& wrongKeys)
        : m_object(object), m_section(section), m_wrong(wrongKeys) {}

    bool readInt(const char* key, int& out) {
        const rapidjson::Value* value = find(key);
        if (!value) return false;
        if (!value->IsInt()) return wrong(key, "int");
        out = value->GetInt();
        return true;
    }

    // A number cut towards zero. Values beyond int cannot be cut and count
    // as wrong.
    bool readCutFloat(const char* key, int& out) {
        const rapidjson::Value* value = find(key);
        if (!value) return false;
        if (!value->IsNumber()) return wrong(key, "number");
        float number = value->GetFloat();
        if (!std::isfinite(number) || number >= 2147483648.0f || number < -2147483648.0f)
            return wrong(key, "number within int");
        out = static_cast<int>(number);
        return true;
    }

private:
    const rapidjson::Value* find(const char* key) const {
        rapidjson::Value::ConstMemberIterator member = m_object.FindMember(key);
        return member == m_object.MemberEnd() ? nullptr : &member->value;
    }

    bool wrong(const char* key, const char* expected) {
        if (!m_wrong.empty()) m_wrong += ", ";
        m_wrong += m_section;
        m_wrong += '.';
        m_wrong += key;
        m_wrong += " (";
        m_wrong += expected;
        m_wrong += ')';
        return false;
    }

    const rapidjson::Value& m_object;
    const char* m_section;
    std::string& m_wrong;
};

void noteWrong(std::string& wrongKeys, const char* what) {
    if (!wrongKeys.empty()) wrongKeys += ", ";
    wrongKeys += what;
}

} // namespace

ZuConfig::ZuConfig(ZuAppMain* app) : ZuGBase(app) {
    cameras.insert(kDefaultCamera, new Camera);
}

ZuConfig::~ZuConfig() {
    for (auto it = cameras.getIterator(); !it.atEnd(); ++it) delete it.getNode()->getValue();
    cameras.clear();
}

void ZuConfig::resetDefaults() {
    width = 720;
    height = 1280;
    designWidth = 720;
    designHeight = 1280;
    designImageWidth = 700;
    designImageHeight = 1004;
    cameraImageFormat = 8;
    adaptmode = 1;
}

void ZuConfig::init() {
    resetDefaults();
    detectType = 0;
    Camera* camera = getCamera(kDefaultCamera);
    camera->width = 1280;
    camera->height = 720;
    camera->angle = 90;
    camera->mirror = false;
    camera->adaptScale = ZuVec3(1.0f, 1.0f, 1.0f);
}

void ZuConfig::destroy() {
    resetDefaults();
    glversion = 0x20000;
}

Camera* ZuConfig::getCamera(const char* name) {
    std::string key = name ? name : "";
    auto* node = cameras.find(key);
    if (node) return node->getValue();
    Camera* camera = new Camera;
    cameras.insert(key, camera);
    return camera;
}

void ZuConfig::setCameraDsp(const char* name, int frameWidth, int frameHeight, int frameAngle) {
    Camera* camera = getCamera(name);
    camera->width = frameWidth;
    camera->height = frameHeight;
    camera->angle = frameAngle;
    if (adaptmode == 1) adaptCamera(camera);
}

void ZuConfig::adaptCamera(Camera* camera) const {
    float a = static_cast<float>(camera->height);
    float b = static_cast<float>(camera->width);
    // At 90 and 270 degrees the picture stands on its side.
    bool sideways = camera->angle == 90 || camera->angle == 270;
    float xSource = sideways ? a : b;
    float ySource = sideways ? b : a;
    if (designWidth <= 0 || designHeight <= 0) {
        QZLOGW("ZuConfig: design size %dx%d cannot scale a camera; adapt scale kept",
               designWidth, designHeight);
        return;
    }
    camera->adaptScale.x = xSource / static_cast<float>(designWidth);
    camera->adaptScale.y = ySource / static_cast<float>(designHeight);
}

void ZuConfig::loadConfig() {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    ZuFileMgr* files = global ? global->getFileMgr() : nullptr;
    if (!files) {
        QZLOGW("ZuConfig: no file manager to read \"%s\"; built-in defaults kept", kConfigFile);
        return;
    }
    loadConfigFrom(files);
}

bool ZuConfig::loadConfigFrom(ZuFileMgr* files) {
    if (!files) return false;
    DataChunk chunk;
    if (!files->loadFileContentStr(&chunk, kConfigFile)) {
        QZLOGD("ZuConfig: no \"%s\"; built-in defaults kept", kConfigFile);
        return false;
    }
    // The text chunk carries one terminating byte after the file's bytes; an
    // empty asset comes back with no buffer at all.
    size_t length = chunk.buffer && chunk.size > 0 ? static_cast<size_t>(chunk.size - 1) : 0;
    return loadConfigText(chunk.buffer, length);
}

bool ZuConfig::loadConfigText(const char* text, size_t len) {
    if (!text || len == 0) {
        QZLOGW("ZuConfig: \"%s\" is empty; built-in defaults kept", kConfigFile);
        return false;
    }

    // The parser takes a zero byte for the end of its input, so whatever
    // followed one would be dropped without a word.
    if (const void* zero = memchr(text, 0, len)) {
        QZLOGW("ZuConfig: \"%s\" is not valid JSON (zero byte at byte %zu); built-in defaults kept",
               kConfigFile, static_cast<size_t>(static_cast<const char*>(zero) - text));
        return false;
    }

    rapidjson::Document document;
    document.Parse(text, len);
    if (document.HasParseError()) {
        QZLOGW("ZuConfig: \"%s\" is not valid JSON (%s at byte %zu); built-in defaults kept",
               kConfigFile, rapidjson::GetParseError_En(document.GetParseError()),
               document.GetErrorOffset());
        return false;
    }
    if (!document.IsObject()) {
        QZLOGW("ZuConfig: \"%s\" does not hold a JSON object; built-in defaults kept",
               kConfigFile);
        return false;
    }

    std::string wrongKeys;

    rapidjson::Value::ConstMemberIterator param = document.FindMember("param");
    if (param != document.MemberEnd() && !param->value.IsObject()) {
        noteWrong(wrongKeys, "param (object)");
    } else if (param != document.MemberEnd()) {
        KeyReader keys(param->value, "param", wrongKeys);
        Camera* camera = getCamera(kDefaultCamera);
        int number = 0;

        keys.readInt("detecttype", detectType);
        keys.readInt("design_width", designWidth);
        keys.readInt("design_height", designHeight);
        // The design picture keys size the default camera, not designImage*;
        // the camera keys below win when both are given.
        keys.readInt("design_img_width", camera->width);
        keys.readInt("design_img_height", camera->height);
        keys.readInt("camera_width", camera->width);
        keys.readInt("camera_height", camera->height);
        keys.readCutFloat("camera_angle", camera->angle);
        keys.readInt("adaptmode", adaptmode);
        keys.readInt("glversion", glversion);
        // "usepbo" is an old key with no effect any more.
        if (keys.readInt("alwaysShowOne", number)) alwaysShowOne = number != 0;
        if (keys.readInt("maxAddQueueNum", number)) maxAddQueueNum = static_cast<uint32_t>(number);
        keys.readCutFloat("playDeltaTime", playDeltaTime);
    }

    rapidjson::Value::ConstMemberIterator flags = document.FindMember("filter");
    if (flags != document.MemberEnd() && !flags->value.IsObject()) {
        noteWrong(wrongKeys, "filter (object)");
    } else if (flags != document.MemberEnd()) {
        KeyReader keys(flags->value, "filter", wrongKeys);
        keys.readInt("2dmask", filter.mask2d);
        keys.readInt("3dmask", filter.mask3d);
        keys.readInt("2dbone", filter.bone2d);
        keys.readInt("3dbone", filter.bone3d);
        keys.readInt("2dframe", filter.frame2d);
        keys.readInt("distorb", filter.distort);
        keys.readInt("gpumorph", filter.gpuMorph);
        keys.readInt("morph", filter.morph);
        keys.readInt("particle", filter.particle);
        keys.readInt("sky", filter.sky);
        keys.readInt("audio", filter.audio);
        keys.readInt("pet", filter.pet);
        keys.readInt("swapface", filter.swapface);
    }

    if (!wrongKeys.empty()) {
        QZLOGW("ZuConfig: \"%s\": wrong JSON type, skipped: %s", kConfigFile, wrongKeys.c_str());
    }
    return true;
}
