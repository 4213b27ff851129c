#pragma once

// Where a frame animation's quad goes: fitted to a screen edge, at the
// screen's centre, over the whole screen, on a face point, or nowhere (a
// mask never draws itself).
enum tANIPOSMODE {
    ANIPOS_NONE = 0,
    ANIPOS_FITTOP = 1,
    ANIPOS_FITBOTTOM = 2,
    ANIPOS_TOPORIGIN = 3,
    ANIPOS_CENTERORIGIN = 4,
    ANIPOS_FULLSCREEN = 5,
    ANIPOS_FACE = 6,
    ANIPOS_MASK = 7,
};
