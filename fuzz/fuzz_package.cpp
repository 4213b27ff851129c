// Feeds arbitrary bytes to the effect package reader as a package's
// config.json, then builds whatever it produced. Whatever comes in, the
// engine must neither crash nor read outside the input, and deleting the
// package must leave no node behind.
#include "FuzzPackageEngine.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static FuzzPackageEngine* engine = new FuzzPackageEngine("package");
    if (!engine->writePackageFile("config.json", data, size)) return 0;
    engine->loadAndDelete(77);
    return 0;
}
