#pragma once

#include <functional>

// The engine's log. On Android this is the system log under the "qzengine"
// tag; on Linux it goes to stderr. The threshold comes from the environment
// variable QZ_LOG_LEVEL (verbose, debug, info, warn, error, silent, or 2..8),
// debug by default. Tests can capture lines with setSink.
enum ZuLogLevel {
    ZU_LOG_VERBOSE = 2,
    ZU_LOG_DEBUG = 3,
    ZU_LOG_INFO = 4,
    ZU_LOG_WARN = 5,
    ZU_LOG_ERROR = 6,
    ZU_LOG_SILENT = 8,
};

class ZuLog {
public:
    using Sink = std::function<void(int level, const char* tag, const char* message)>;

    static constexpr const char* kTag = "qzengine";

    static void print(int level, const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 2, 3)))
#endif
        ;

    // Lines below the threshold are dropped before formatting.
    static void setLevel(int level);
    static int level();

    // Replaces the output (stderr or the system log) until reset with an empty sink.
    static void setSink(Sink sink);
};

#define QZLOGV(...) ZuLog::print(ZU_LOG_VERBOSE, __VA_ARGS__)
#define QZLOGD(...) ZuLog::print(ZU_LOG_DEBUG, __VA_ARGS__)
#define QZLOGI(...) ZuLog::print(ZU_LOG_INFO, __VA_ARGS__)
#define QZLOGW(...) ZuLog::print(ZU_LOG_WARN, __VA_ARGS__)
#define QZLOGE(...) ZuLog::print(ZU_LOG_ERROR, __VA_ARGS__)
