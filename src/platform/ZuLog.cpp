#include "platform/ZuLog.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>

#if defined(__ANDROID__)
#include <android/log.h>
#endif

namespace {

int levelFromEnvironment() {
    const char* text = std::getenv("QZ_LOG_LEVEL");
    if (!text || !*text) return ZU_LOG_DEBUG;
    struct Named { const char* name; int level; };
    static const Named names[] = {
        {"verbose", ZU_LOG_VERBOSE}, {"debug", ZU_LOG_DEBUG}, {"info", ZU_LOG_INFO},
        {"warn", ZU_LOG_WARN},       {"error", ZU_LOG_ERROR}, {"silent", ZU_LOG_SILENT},
    };
    for (const Named& n : names)
        if (strcasecmp(text, n.name) == 0) return n.level;
    int number = std::atoi(text);
    return number >= ZU_LOG_VERBOSE ? number : ZU_LOG_DEBUG;
}

std::atomic<int>& threshold() {
    static std::atomic<int> value{levelFromEnvironment()};
    return value;
}

// The sink is swapped rarely (tests) and read on every line; a mutex keeps a
// swap from racing a print on another thread.
std::mutex& sinkMutex() {
    static std::mutex m;
    return m;
}

ZuLog::Sink& sink() {
    static ZuLog::Sink s;
    return s;
}

char levelLetter(int level) {
    switch (level) {
    case ZU_LOG_VERBOSE: return 'V';
    case ZU_LOG_DEBUG: return 'D';
    case ZU_LOG_INFO: return 'I';
    case ZU_LOG_WARN: return 'W';
    default: return 'E';
    }
}

} // namespace

void ZuLog::print(int level, const char* format, ...) {
    if (level < threshold().load(std::memory_order_relaxed)) return;

    char message[1024];
    va_list args;
    va_start(args, format);
    vsnprintf(message, sizeof message, format, args);
    va_end(args);

    std::lock_guard<std::mutex> hold(sinkMutex());
    if (sink()) {
        sink()(level, kTag, message);
        return;
    }
#if defined(__ANDROID__)
    __android_log_print(level, kTag, "%s", message);
#else
    size_t length = strlen(message);
    const char* newline = (length > 0 && message[length - 1] == '\n') ? "" : "\n";
    fprintf(stderr, "%c/%s: %s%s", levelLetter(level), kTag, message, newline);
#endif
}

void ZuLog::setLevel(int level) { threshold().store(level, std::memory_order_relaxed); }

int ZuLog::level() { return threshold().load(std::memory_order_relaxed); }

void ZuLog::setSink(Sink newSink) {
    std::lock_guard<std::mutex> hold(sinkMutex());
    sink() = std::move(newSink);
}
