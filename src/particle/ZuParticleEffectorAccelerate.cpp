#include "particle/ZuParticleEffectorAccelerate.h"

#include "particle/ZuParticle.h"

#include <cmath>

void ZuParticleEffectorAccelerate::exec(ZuParticle* particle, float dt) {
    if (accelX == 0.0f && accelY == 0.0f) return;
    ParticleParam& p = particle->param;
    const float vx = p.velocityX + accelX * dt;
    const float vy = p.velocityY + accelY * dt;
    const float v = std::sqrt(vx * vx + vy * vy);
    if (maxSpeed <= 0.0f || v < maxSpeed) {
        p.posX += p.velocityX * dt + accelX * dt * dt / 2.0f;
        p.posY += p.velocityY * dt + accelY * dt * dt / 2.0f;
        p.velocityX = vx;
        p.velocityY = vy;
        return;
    }
    const float a = std::atan2(vx, vy);
    p.velocityX = maxSpeed * std::sin(a);
    p.velocityY = maxSpeed * std::cos(a);
    p.posX += p.velocityX * dt + p.velocityX * dt * dt / 2.0f;
    p.posY += p.velocityY * dt + p.velocityY * dt * dt / 2.0f;
}
