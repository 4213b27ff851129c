#include "basesys/ZuLiveObjects.h"

#include "basesys/ZuAppMain.h"

ZuLiveObjects* ZuLiveObjects::enter(ZuAppMain* app, Kind kind) {
    if (!app) return nullptr;
    ZuLiveObjects* counter = app->getLiveObjects();
    counter->retain();
    counter->counts[static_cast<int>(kind)].fetch_add(1, std::memory_order_relaxed);
    return counter;
}

void ZuLiveObjects::leave(ZuLiveObjects*& counter, Kind kind) {
    if (!counter) return;
    counter->counts[static_cast<int>(kind)].fetch_sub(1, std::memory_order_relaxed);
    qzSafeRelease(counter);
}

int ZuLiveObjects::aliveTotal() const {
    int total = 0;
    for (const auto& count : counts) total += count.load(std::memory_order_relaxed);
    return total;
}

const char* ZuLiveObjects::nameOf(Kind kind) {
    switch (kind) {
    case Kind::Texture: return "texture";
    case Kind::Material: return "material";
    case Kind::Framebuffer: return "framebuffer";
    }
    return "object";
}
