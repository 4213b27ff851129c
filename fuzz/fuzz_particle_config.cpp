// Feeds arbitrary bytes to the "particle" item's readers: the first byte
// picks the list reader or the parameter reader, the rest is the file. What
// a parameter file describes is then built and ticked, so a bad number must
// end as a refused or bounded effect, never a crash, an overflow or a pool
// beyond its cap.
#include "basesys/ZuAppMain.h"
#include "parse/ZuParseParticle.h"
#include "particle/ZuParticleEffect.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static ZuAppMain* app = new ZuAppMain();
    if (size < 1) return 0;
    const char* text = reinterpret_cast<const char*>(data + 1);
    const size_t length = size - 1;
    if (data[0] & 1) {
        // No file manager: named parameter files are not found, as in a
        // package that lacks them.
        ZuParseParticle* item = new ZuParseParticle(app);
        ZuParseParticle::parseListText(app, item, text, length, "");
        item->release();
        return 0;
    }
    ZuParticleConfig config;
    if (!ZuParseParticle::parseModeText(&config, text, length)) return 0;
    ZuParticleEffect* effect = ZuParseParticle::buildEffect(app, config);
    for (int i = 0; i < 8; ++i) effect->update(0.1f);
    if (effect->getCapacity() > ZuParticleEffect::kMaxParticles || effect->getLiveCount() > effect->getCapacity() ||
        effect->getDataLen() > effect->getMaxDataLen())
        abort();
    delete effect;
    return 0;
}
