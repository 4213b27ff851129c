#pragma once

#include <cstdio>

// A one-line progress bar on stderr, redrawn in place, so that stdout keeps
// only the results. Silent for single-frame work or when turned off.
class ProgressBar {
public:
    ProgressBar(int total, bool enabled, FILE* to = stderr);
    // Shows done of total; redraws only when the bar or the percentage moves.
    void update(int done);
    // Ends the line so that later messages start clean.
    void finish();

    static constexpr int kWidth = 30;

private:
    int m_total;
    bool m_enabled;
    FILE* m_to;
    int m_lastPercent = -1;
    bool m_drawn = false;
};
