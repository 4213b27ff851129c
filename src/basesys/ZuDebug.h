#pragma once

#include "basesys/ZuObject.h"
#include "basesys/qzString.h"

#include <chrono>

// Scoped timer: logs "<label>CostTime <ms> \n" at debug level when it goes
// out of scope. Meant for ad hoc profiling of load paths.
class ZuDebug : private ZuObject {
public:
    explicit ZuDebug(const char* label);
    ~ZuDebug() override;

    // Milliseconds since construction.
    double elapsedMs() const;

private:
    qz::string m_label;
    std::chrono::steady_clock::time_point m_start;
};
