// Feeds arbitrary bytes to the engine configuration reader as the text of
// "shader/olcfg.json". Whatever comes in, the reader must neither crash nor
// read outside the input, and the camera records must stay usable.
#include "basesys/ZuConfig.h"
#include "platform/ZuLog.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static bool quiet = (ZuLog::setLevel(ZU_LOG_SILENT), true);
    (void)quiet;

    ZuConfig* config = new ZuConfig(nullptr);
    config->init();
    config->loadConfigText(reinterpret_cast<const char*>(data), size);
    // Whatever the file set, scaling a camera against it must be safe.
    config->setCameraDsp("fuzz", 1280, 720, config->getCamera(ZuConfig::kDefaultCamera)->angle);
    config->release();
    return 0;
}
