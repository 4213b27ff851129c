#include "particle/ZuParticleEffectorColorQuene.h"

#include "particle/ZuParticle.h"
#include "platform/ZuLog.h"

#include <cstring>

void ZuParticleEffectorColorQuene::pushColor(uint8_t r, uint8_t g, uint8_t b, uint8_t a, float time) {
    if (time < 0.0f) {
        QZLOGW("error : the first color ,time < 0 !time must be >= 0 \n");
        return;
    }
    if (stops.size() == 0 && time != 0.0f) {
        QZLOGW("error the first color ,time must be = 0 \n");
        return;
    }
    stops.push_back(Stop{{r, g, b, a}, time});
}

void ZuParticleEffectorColorQuene::exec(ZuParticle* particle, float) {
    if (stops.size() == 0) return;
    uint8_t* color = particle->param.color;
    if (stops.size() == 1) {
        std::memcpy(color, stops[0].color, 4);
        return;
    }
    const float t = lifeRatio(particle);
    for (uint32_t i = 1; i < stops.size(); ++i) {
        if (!(stops[i].time > t)) continue;
        const Stop& before = stops[i - 1];
        const Stop& after = stops[i];
        const float span = after.time - before.time;
        if (!lerp || !(span > 0.0f)) {
            std::memcpy(color, before.color, 4);
            return;
        }
        const float k = (t - before.time) / span;
        for (int c = 0; c < 4; ++c)
            color[c] = static_cast<uint8_t>(before.color[c] + (after.color[c] - before.color[c]) * k);
        return;
    }
}
