// qzhost: a desktop host that drives the engine the way a phone app's native
// layer does, with a headless GL context instead of a window.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuEvent.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "operate/ZuOperateBase.h"
#include "operate/ZuOperateMgr.h"
#include "platform/ZuHeadlessContext.h"

#include <GLES2/gl2.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace {

struct Options {
    int frames = 30;
    std::string assets = "assets";
};

void printUsage(FILE* to) {
    fprintf(to,
            "usage: qzhost [options]\n"
            "\n"
            "Starts the engine on a headless GL context, ticks it frame by frame\n"
            "and reports what it did.\n"
            "\n"
            "options:\n"
            "  --frames N     number of frames to tick (default 30, 1..100000)\n"
            "  --assets DIR   the engine's resource folder, added as a search path\n"
            "                 (default: assets)\n"
            "  --help         show this text\n"
            "\n"
            "example:\n"
            "  qzhost --frames 60 --assets assets\n");
}

bool parseArguments(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        auto value = [&](const char* name) -> const char* {
            if (i + 1 >= argc) {
                fprintf(stderr, "qzhost: %s needs a value\n", name);
                return nullptr;
            }
            return argv[++i];
        };
        if (arg == "--help" || arg == "-h") {
            printUsage(stdout);
            exit(0);
        } else if (arg == "--frames") {
            const char* text = value("--frames");
            if (!text) return false;
            char* end = nullptr;
            long frames = strtol(text, &end, 10);
            if (*end != '\0' || frames < 1 || frames > 100000) {
                fprintf(stderr, "qzhost: --frames wants a number from 1 to 100000, not '%s'\n", text);
                return false;
            }
            options.frames = static_cast<int>(frames);
        } else if (arg == "--assets") {
            const char* text = value("--assets");
            if (!text) return false;
            options.assets = text;
        } else {
            fprintf(stderr, "qzhost: unknown option '%s' (see --help)\n", arg.c_str());
            return false;
        }
    }
    if (access(options.assets.c_str(), R_OK) != 0) {
        fprintf(stderr, "qzhost: cannot read the assets folder '%s'\n", options.assets.c_str());
        return false;
    }
    if (options.assets.back() != '/') options.assets += '/';
    return true;
}

// Counts the frames in which the operation queue and the event broadcast ran.
struct TickProbe : public ZuEventProc {
    explicit TickProbe(ZuAppMain* app) : ZuEventProc(app) {}
    bool procEvent(ZuEvent* event) override {
        ++events;
        return true;
    }
    int events = 0;
};

struct CountingOperate : public ZuOperateBase {
    CountingOperate(ZuAppMain* app, int* counter, bool onLoadThread)
        : ZuOperateBase(app), counter(counter), onLoadThread(onLoadThread) {}
    void process(float delta) override {
        ++*counter;
        if (!onLoadThread) {
            // Frame operations raise an event, which the broadcast delivers next frame.
            auto* event = new ZuEvent("demo", 0);
            event->name = "tick";
            app->getGlobalMgr()->getEventMgr()->pushEvent(event);
        }
    }
    int* counter;
    bool onLoadThread;
};

} // namespace

int main(int argc, char** argv) {
    Options options;
    if (!parseArguments(argc, argv, options)) return 2;

    ZuHeadlessContext& gl = ZuHeadlessContext::instance();
    bool es3 = gl.makeCurrent(3);
    if (!es3 && !gl.makeCurrent(2)) {
        fprintf(stderr, "qzhost: no headless GL context: %s\n", gl.error().c_str());
        return 1;
    }
    printf("GL: %s (%s)\n", reinterpret_cast<const char*>(glGetString(GL_VERSION)),
           reinterpret_cast<const char*>(glGetString(GL_RENDERER)));

    auto* engine = new ZuAppMain();
    engine->init();
    // As a phone host does: tell the engine which GL it runs on before the start.
    auto* hostConfig = new ZuConfig(engine);
    hostConfig->init();
    hostConfig->glversion = es3 ? 0x30000 : 0x20000;
    engine->getGlobalMgr()->setConfig(hostConfig);
    hostConfig->release();
    engine->addRespath(options.assets.c_str());
    engine->initZuBase();

    ZuGlobalMgr* managers = engine->getGlobalMgr();
    ZuConfig* config = managers->getConfig();
    printf("engine started: design %dx%d, GL version 0x%x\n", config->getDesignWidth(),
           config->getDesignHeight(), config->glversion);

    auto* probe = new TickProbe(engine);
    managers->getEventMgr()->registProcer(probe);

    int frameOps = 0, loadOps = 0;
    auto* loadOp = new CountingOperate(engine, &loadOps, true);
    managers->getOperateMgr()->pushLoadOperate(loadOp);
    loadOp->release();

    for (int frame = 0; frame < options.frames; ++frame) {
        auto* op = new CountingOperate(engine, &frameOps, false);
        managers->getOperateMgr()->pushOperate(op);
        op->release();
        engine->update();
        engine->directrender("");
        usleep(1000);
    }
    printf("ticked %d frames: %d frame operations ran, %d events delivered, %d load-thread operation(s)\n",
           options.frames, frameOps, probe->events, loadOps);

    managers->getEventMgr()->unregistProcer(probe);
    probe->release();
    engine->setState("qzhost", ZU_ENG_STATE_STOPPING);
    engine->destroyZuBase();
    engine->destroy();
    engine->release();
    printf("engine stopped\n");
    return 0;
}
