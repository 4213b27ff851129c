// Feeds arbitrary bytes as the filter file of a "filterGather" item, then
// builds the item: a bad file must leave a node without a look, never a crash
// or a read outside the input.
#include "FuzzPackageEngine.h"

#include <cstring>

namespace {

FuzzPackageEngine* makeEngine() {
    FuzzPackageEngine* engine = new FuzzPackageEngine("filter");
    const char config[] = "{\"param\": [{\"id\": \"f\", \"type\": \"filterGather\", \"subType\": \"pink\","
                          " \"filterName\": \"look\"}]}";
    if (!engine->writePackageFile("config.json", config, std::strlen(config))) abort();
    return engine;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static FuzzPackageEngine* engine = makeEngine();
    if (!engine->writePackageFile("look.json", data, size)) return 0;
    engine->loadAndDelete(78);
    return 0;
}
