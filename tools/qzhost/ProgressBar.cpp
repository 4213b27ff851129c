#include "ProgressBar.h"

ProgressBar::ProgressBar(int total, bool enabled, FILE* to)
    : m_total(total), m_enabled(enabled && total > 1), m_to(to) {}

void ProgressBar::update(int done) {
    if (!m_enabled) return;
    if (done > m_total) done = m_total;
    int percent = static_cast<int>(100LL * done / m_total);
    if (percent == m_lastPercent && done != m_total) return;
    m_lastPercent = percent;
    int filled = static_cast<int>(static_cast<long long>(kWidth) * done / m_total);
    char bar[kWidth + 1];
    for (int i = 0; i < kWidth; ++i) bar[i] = i < filled ? '#' : '.';
    bar[kWidth] = '\0';
    fprintf(m_to, "\r[%s] %3d%% %d/%d frames", bar, percent, done, m_total);
    fflush(m_to);
    m_drawn = true;
}

void ProgressBar::finish() {
    if (m_drawn) fputc('\n', m_to);
    m_drawn = false;
}
