#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "parse/ZuParseDataEvent.h"
#include "parse/ZuParticleConfig.h"

#include <rapidjson/document.h>

class ZuParticleEffect;

// A "particle" item: "particle_name" names a list file beside config.json;
// each entry of the list names an emitter whose parameter file and image
// share its base name. generate() makes one ZuParticleNode per emitter.
class ZuParseParticle : public ZuParseDataEvent {
public:
    explicit ZuParseParticle(ZuAppMain* app) : ZuParseDataEvent(app) {}

    static ZuParseData* parseParticle(ZuAppMain* app, const rapidjson::Value& value, int resUID,
                                      const char* sceneName, const char* directory);
    // Reads directory + particleFile + ".json"; an unreadable or malformed
    // list leaves configs empty.
    static void parseParticleConfig(ZuAppMain* app, ZuParseParticle* data, const char* directory);
    // Fills one record from directory + emitterName + ".json".
    static void parseParticleMode(ZuAppMain* app, ZuParticleConfig* config, const char* directory);
    // The list and parameter readers on text already in memory.
    static void parseListText(ZuAppMain* app, ZuParseParticle* data, const char* text, size_t size,
                              const char* directory);
    static bool parseModeText(ZuParticleConfig* config, const char* text, size_t size);

    // Web colour text ("#ff8000" or "ff8000") to red, green, blue; any other
    // length gives black.
    static void parseColor(const std::string& text, int rgb[3]);
    // The effect a record describes, before any node: emitter and effectors.
    static ZuParticleEffect* buildEffect(ZuAppMain* app, const ZuParticleConfig& config);

    void generate(int newResUID, const char* sceneName, char* directory) override;

    qz::string particleFile;
    qz::array<ZuParticleConfig> configs;
};
