// Feeds arbitrary bytes to the effect package reader as a package's
// config.json, then builds whatever it produced. Whatever comes in, the
// engine must neither crash nor read outside the input, and deleting the
// package must leave no node behind.
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
        char pattern[] = "/tmp/qzfuzz_package_XXXXXX";
        const char* made = mkdtemp(pattern);
        if (!made) abort();
        dir = made;
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
    std::string file = engine->dir + "/pkg/config.json";
    static bool madeDir = (mkdir((engine->dir + "/pkg").c_str(), 0700), true);
    (void)madeDir;
    FILE* out = fopen(file.c_str(), "wb");
    if (!out) return 0;
    fwrite(data, 1, size, out);
    fclose(out);

    ZuGlobalMgr* global = engine->app->getGlobalMgr();
    global->getParseMgr()->parse("pkg", 77, "fuzz");
    global->getOperateMgr()->update(16.0f);  // builds the items
    global->getNodeMgr()->delNodeByResID(77);
    if (global->getNodeMgr()->size() != 0) abort();
    return 0;
}
