#pragma once

// The built-in run-time curve looks of ZuFilterNode.
enum ZU_FILTER_GATHER_TYPE {
    ZU_FILTER_GATHER_MOON = 0,
    ZU_FILTER_GATHER_SOFTGREEN = 1,
    ZU_FILTER_GATHER_BOXI = 2,
    ZU_FILTER_GATHER_MEMORY = 3,
    ZU_FILTER_GATHER_BLACKWHITE = 4,
};
