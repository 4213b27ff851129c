#pragma once

#include "platform/ZuLog.h"

#include <functional>

// Checks for the two kinds of mistake the engine meets.
//
// A precondition is the caller's side of a contract (a null scene name, a
// child that already has a parent, a format the engine does not know). A
// failed one is logged at warning level with the condition and the values
// that broke it, and the call returns without doing anything: the engine
// keeps running and the host can read why in the log.
//
// An invariant is the engine's own promise (nothing alive at shutdown, a
// stream replayed in order). A broken one is logged at error level and
// handed to the invariant handler, which test programs set to fail the test
// that broke it; in a host it only logs.
class ZuCheck {
public:
    using Handler = std::function<void(const char* message)>;

    // Replaces the handler; an empty one restores "log only".
    static void setInvariantHandler(Handler handler);

    // Formats "precondition failed in FUNCTION: CONDITION (DETAIL)" at warning level.
    static void preconditionFailed(const char* function, const char* condition, const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 3, 4)))
#endif
        ;
    // Formats "invariant broken in FUNCTION: CONDITION (DETAIL)" at error level, then calls the handler.
    static void invariantBroken(const char* function, const char* condition, const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 3, 4)))
#endif
        ;
};

// Returns (with the value, if one follows the message) when cond is false.
//   QZ_REQUIRE(child != nullptr, "scene %s", name);
//   QZ_REQUIRE_OR(format >= 0, false, "format %d", format);
#define QZ_REQUIRE(cond, ...)                                                    \
    do {                                                                         \
        if (!(cond)) {                                                           \
            ZuCheck::preconditionFailed(__func__, #cond, __VA_ARGS__);           \
            return;                                                              \
        }                                                                        \
    } while (0)

#define QZ_REQUIRE_OR(cond, result, ...)                                         \
    do {                                                                         \
        if (!(cond)) {                                                           \
            ZuCheck::preconditionFailed(__func__, #cond, __VA_ARGS__);           \
            return result;                                                       \
        }                                                                        \
    } while (0)

// Reports and goes on: an invariant is checked, not enforced.
#define QZ_INVARIANT(cond, ...)                                                  \
    do {                                                                         \
        if (!(cond)) ZuCheck::invariantBroken(__func__, #cond, __VA_ARGS__);     \
    } while (0)
