#include "PackageWatcher.h"

#include "event/ZuParseEvent.h"

#include <cstdio>

bool PackageWatcher::procEvent(ZuEvent* event) {
    if (!event || event->type != ZU_EVENT_PARSE) return true;
    auto* parsed = static_cast<ZuParseEvent*>(event);
    auto found = m_pending.find(parsed->parsedResUID);
    std::string path = found != m_pending.end() ? found->second : "(unknown package)";
    if (parsed->success) {
        printf("loaded effect '%s' (resUID %d)\n", path.c_str(), parsed->parsedResUID);
    } else {
        ++m_failed;
        fprintf(stderr, "qzhost: the effect '%s' (resUID %d) failed to load\n", path.c_str(),
                parsed->parsedResUID);
    }
    if (found != m_pending.end()) m_pending.erase(found);
    return true;
}

void PackageWatcher::reportPending() const {
    for (const auto& item : m_pending)
        printf("effect '%s' (resUID %d) had not finished loading when the run ended\n", item.second.c_str(),
               item.first);
}
