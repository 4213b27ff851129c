#pragma once

#include <cstdint>

// The changing state of one particle. Effectors write it, the particle's own
// update integrates it; reset() is what a slot holds while it waits in the
// free list.
struct ParticleParam {
    float posX = 0, posY = 0, posZ = 0;
    float rotX = 0, rotY = 0, rotZ = 0; // degrees
    float scaleX = 50, scaleY = 50;
    uint8_t color[4] = {255, 255, 255, 255};
    float lifeTime = 0; // seconds lived
    float maxLife = 0;  // seconds
    float velocityX = 0, velocityY = 0, accelX = 0, accelY = 0;
    int angle = 0; // direction of travel, degrees
    float speed = 0;
    // A size of 1 would be a single pixel; 50 gives a visible default quad.
    float scaleMultiplier = 50;
    float velocityMultiplier = 1;
    int palstance = 0; // degrees per second

    void reset() { *this = ParticleParam(); }
};
