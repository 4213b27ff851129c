#include "basesys/ZuDebug.h"

#include "platform/ZuLog.h"

ZuDebug::ZuDebug(const char* label) : m_label(label), m_start(std::chrono::steady_clock::now()) {}

ZuDebug::~ZuDebug() {
    QZLOGD("%sCostTime %f \n", m_label.c_str(), elapsedMs());
}

double ZuDebug::elapsedMs() const {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - m_start)
        .count();
}
