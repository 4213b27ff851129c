// Feeds arbitrary bytes as the filter file of a "filterGather" item, then
// builds the item: a bad file must leave a node without a look, never a crash
// or a read outside the input.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "operate/ZuOperateMgr.h"
#include "parse/ZuParseMgr.h"
#include "platform/ZuHeadlessContext.h"
#include "platform/ZuLog.h"
#include "scene/ZuNodeMgr.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Engine {
    Engine() {
        ZuLog::setLevel(ZU_LOG_SILENT);
        ZuHeadlessContext::instance().makeCurrent(3);
        char pattern[] = "/tmp/qzfuzz_filter_XXXXXX";
        const char* made = mkdtemp(pattern);
        if (!made) abort();
        dir = made;
        mkdir((dir + "/pkg").c_str(), 0700);
        FILE* config = fopen((dir + "/pkg/config.json").c_str(), "wb");
        if (!config) abort();
        fputs("{\"param\": [{\"id\": \"f\", \"type\": \"filterGather\", \"subType\": \"pink\","
              " \"filterName\": \"look\"}]}",
              config);
        fclose(config);
        app = new ZuAppMain();
        app->init();
        app->addRespath((dir + "/").c_str());
        app->initZuBase();
    }
    std::string dir;
    ZuAppMain* app = nullptr;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Engine* engine = new Engine();
    FILE* out = fopen((engine->dir + "/pkg/look.json").c_str(), "wb");
    if (!out) return 0;
    fwrite(data, 1, size, out);
    fclose(out);

    ZuGlobalMgr* global = engine->app->getGlobalMgr();
    global->getParseMgr()->parse("pkg", 78, "fuzz");
    global->getOperateMgr()->update(16.0f);  // builds the item (GL tables included)
    global->getNodeMgr()->delNodeByResID(78);
    if (global->getNodeMgr()->size() != 0) abort();
    return 0;
}
