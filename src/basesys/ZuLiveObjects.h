#pragma once

#include "basesys/ZuRefObject.h"

#include <atomic>
#include <cstdint>

class ZuAppMain;

// Counts the GPU-side objects of one engine that are alive: textures,
// materials and framebuffers. Each such object retains the engine's counter
// for its own lifetime, so it can be released after the engine is gone, and
// the engine reports at shutdown whatever nobody let go of.
class ZuLiveObjects : public ZuRefObject {
public:
    enum class Kind : uint8_t {
        Texture,     // ZuTexture and its subclasses
        Material,    // ZuMaterial made for an engine
        Framebuffer, // ZuFboObject and its subclasses
    };
    static constexpr int kKinds = 3;

    // The counter of app, retained and counted up; null when app is null.
    static ZuLiveObjects* enter(ZuAppMain* app, Kind kind);
    // Counts down and drops the reference; null is ignored.
    static void leave(ZuLiveObjects*& counter, Kind kind);

    int alive(Kind kind) const { return counts[static_cast<int>(kind)].load(std::memory_order_relaxed); }
    int aliveTotal() const;
    static const char* nameOf(Kind kind);

private:
    std::atomic<int> counts[kKinds] = {};
};
