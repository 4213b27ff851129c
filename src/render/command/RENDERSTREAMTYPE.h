#pragma once

// The numbered streams of a render scene. Replay runs them in ascending
// number, which is what orders the passes of a frame; a number without a
// name is valid and stays empty. Stream numbers travel as plain ints (a
// node's render order is one), so the type is int; redeclaring the same
// typedef elsewhere is harmless.
typedef int RENDERSTREAMTYPE;

enum : int {
    RS_GEN_BACKGROUND = 1,  // camera planes converted into the background target
    RS_SELECT_BEGIN = 2,    // colour-pick pass
    RS_SELECT_DRAW = 3,
    RS_SELECT_READ = 4,
    RS_SCENE_BEGIN = 6,     // bind the scene's own target
    RS_BG_RENDER = 7,       // background into the scene target
    RS_BEAUTY_READ = 8,
    RS_FILTER_EARLY = 9,
    RS_MODEL_UNDER = 10,
    RS_FACE_MASK = 11,
    RS_FACE_SWAP = 12,
    RS_FACE_WARP = 13,
    RS_FILTER = 15,
    RS_OVERLAY = 16,
    RS_SPRITE = 20,
    RS_DEBUG_SCENE = 21,
    RS_FILTER_LATE = 22,
    RS_SCENE_END = 23,      // unbind the scene target
    RS_DATA_TRANS = 25,     // output read-back
    RS_ADAPT = 26,          // scene target to the window
    RS_ICON = 27,
    RS_INPUT_FBO = 28,
    RS_DEBUG_SCREEN = 29,
    RS_STREAM_COUNT = 30,
};
