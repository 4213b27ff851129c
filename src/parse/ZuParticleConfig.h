#pragma once

#include <string>

// One emitter of a "particle" item as its files describe it: what the list
// file says about it and what its parameter file holds. Numbers missing
// from the files stay 0.
struct ZuParticleConfig {
    int id = 0;
    std::string particleName;
    std::string emitterName;
    float emitterX = 0, emitterY = 0;
    // Standard landmark index the emitter rides on ("index"); -1 keeps it
    // where "emmitterPos" puts it on the screen.
    int bindIndex = -1;
    int alphaStart = 0, alphaEnd = 0;
    float scaleStart = 0, scaleEnd = 0, minScaleMultiplier = 0;
    std::string colorStart, colorEnd;
    int speedStart = 0, speedEnd = 0;
    float minSpeedMultiplier = 0, speedMinScaleMultiplier = 0;
    int accelX = 0, accelY = 0;
    int maxSpeed = 0;
    int rotationMin = 0, rotationMax = 0;
    bool noRotation = false;
    int rotationSpeedMin = 0, rotationSpeedMax = 0;
    int lifetimeMin = 0, lifetimeMax = 0;
    std::string blendMode;
    float frequency = 0;
    int emitterLifetime = 0;
    int maxParticles = 0;
    int posX = 0, posY = 0;
    bool addAtBack = false;
    std::string spawnType;
    int rectX = 0, rectY = 0, rectW = 0, rectH = 0;
    float circleR = 0, circleMinR = 0;
    float particlesPerWave = 0, particleSpacing = 0, angleStart = 0;
};
