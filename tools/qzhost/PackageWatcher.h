#pragma once

#include "event/ZuEventProc.h"

#include <map>
#include <string>

// Listens on the engine's event channel for the parse outcome of each
// package, the way a host learns whether an effect loaded.
class PackageWatcher : public ZuEventProc {
public:
    explicit PackageWatcher(ZuAppMain* app) : ZuEventProc(app) {}

    // The package expected under that resUID, named in the report.
    void expect(int resUID, const std::string& path) { m_pending[resUID] = path; }
    bool procEvent(ZuEvent* event) override;

    // Packages still without an outcome.
    size_t pendingCount() const { return m_pending.size(); }
    int failedCount() const { return m_failed; }
    // Prints one line per package still waiting.
    void reportPending() const;

private:
    std::map<int, std::string> m_pending;
    int m_failed = 0;
};
