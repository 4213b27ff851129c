#include "basesys/ZuCheck.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>

namespace {

std::mutex handlerLock;
ZuCheck::Handler& handler() {
    static ZuCheck::Handler current;
    return current;
}

void formatDetail(char* out, size_t size, const char* format, va_list args) {
    if (!format || !format[0]) {
        out[0] = '\0';
        return;
    }
    vsnprintf(out, size, format, args);
}

} // namespace

void ZuCheck::setInvariantHandler(Handler next) {
    std::lock_guard<std::mutex> hold(handlerLock);
    handler() = std::move(next);
}

void ZuCheck::preconditionFailed(const char* function, const char* condition, const char* format, ...) {
    char detail[512];
    va_list args;
    va_start(args, format);
    formatDetail(detail, sizeof detail, format, args);
    va_end(args);
    QZLOGW("precondition failed in %s: %s (%s)", function, condition, detail);
}

void ZuCheck::invariantBroken(const char* function, const char* condition, const char* format, ...) {
    char detail[512];
    va_list args;
    va_start(args, format);
    formatDetail(detail, sizeof detail, format, args);
    va_end(args);
    char message[768];
    snprintf(message, sizeof message, "invariant broken in %s: %s (%s)", function, condition, detail);
    QZLOGE("%s", message);
    Handler current;
    {
        std::lock_guard<std::mutex> hold(handlerLock);
        current = handler();
    }
    if (current) current(message);
}
