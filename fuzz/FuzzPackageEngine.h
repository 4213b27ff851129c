#pragma once

// An engine on the headless GL context whose resource root is a fresh
// temporary folder holding one package, "pkg": for targets that feed the
// files of a package and then build it.
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

class FuzzPackageEngine {
public:
    explicit FuzzPackageEngine(const char* tag) {
        ZuLog::setLevel(ZU_LOG_SILENT);
        ZuHeadlessContext::instance().makeCurrent(3);
        std::string pattern = std::string("/tmp/qzfuzz_") + tag + "_XXXXXX";
        const char* made = mkdtemp(&pattern[0]);
        if (!made) abort();
        m_dir = made;
        mkdir((m_dir + "/pkg").c_str(), 0700);
        m_app = new ZuAppMain();
        m_app->init();
        m_app->addRespath((m_dir + "/").c_str());
        m_app->initZuBase();
    }

    // Replaces pkg/<name> with these bytes; false if it cannot be written.
    bool writePackageFile(const char* name, const void* data, size_t size) const {
        FILE* out = fopen((m_dir + "/pkg/" + name).c_str(), "wb");
        if (!out) return false;
        fwrite(data, 1, size, out);
        fclose(out);
        return true;
    }

    // Parses the package under this resource id, builds its items (GL
    // objects included) and deletes them; a node left behind is a finding.
    void loadAndDelete(int resUID) const {
        ZuGlobalMgr* global = m_app->getGlobalMgr();
        global->getParseMgr()->parse("pkg", resUID, "fuzz");
        global->getOperateMgr()->update(16.0f);
        global->getNodeMgr()->delNodeByResID(resUID);
        if (global->getNodeMgr()->size() != 0) abort();
    }

private:
    std::string m_dir;
    ZuAppMain* m_app = nullptr;
};
