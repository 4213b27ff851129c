#include "basesys/CBrockHelp.h"

#include "data/ZuDataShareSwap.h"
#include "event/ZuEffectEvent.h"
#include "event/ZuEvent.h"

#include <cstdlib>

CBrockHelp::~CBrockHelp() { destroy(); }

void CBrockHelp::init() {
    resetEft();
    canLoadFlag = true;
    outputOpen = false;
}

void CBrockHelp::create(int width, int height) {
    if (repackBuffer || width <= 0 || height <= 0) return;
    repackSize = static_cast<int>(static_cast<int64_t>(width) * height * 3 / 2);
    repackBuffer = calloc(static_cast<size_t>(repackSize), 1);
    if (!repackBuffer) repackSize = 0;
}

void CBrockHelp::destroy() {
    free(repackBuffer);
    repackBuffer = nullptr;
    repackSize = 0;
    qzSafeRelease(shareSwap);
}

void CBrockHelp::resetEft() {
    std::lock_guard<std::mutex> guard(lock);
    current = "null";
    pending = "null";
}

bool CBrockHelp::canLoadEft(const char* path) {
    std::lock_guard<std::mutex> guard(lock);
    pending = path ? path : "";
    if (!canLoadFlag || current == pending) return false;
    canLoadFlag = false;
    current = pending;
    return true;
}

qz::string CBrockHelp::getCurrent() const {
    std::lock_guard<std::mutex> guard(lock);
    return current;
}

void CBrockHelp::setCurrent(const char* path) {
    std::lock_guard<std::mutex> guard(lock);
    current = path ? path : "";
}

bool CBrockHelp::procEvent(ZuEvent* event) {
    if (!event || event->type != ZU_EVENT_EFFECT) return true;
    auto* effect = static_cast<ZuEffectEvent*>(event);
    if (effect->targetUid == kEffectUID && effect->state == 1) {
        canLoadFlag = true;
        outputOpen = true;
    }
    return true;
}

void CBrockHelp::setShareSwap(ZuDataShareSwap* swap) {
    if (swap) swap->retain();
    qzSafeRelease(shareSwap);
    shareSwap = swap;
}
