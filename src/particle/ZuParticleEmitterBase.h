#pragma once

class ZuParticle;
class ZuParticleEffect;
class ZuRandom;

// Wakes dead particles of an effect at a rate: generateSpeed particles a
// second, with the fraction carried over while it stays below one particle.
// Subclasses say where a new particle starts.
class ZuParticleEmitterBase {
public:
    ZuParticleEmitterBase() = default;
    virtual ~ZuParticleEmitterBase() = default;
    ZuParticleEmitterBase(const ZuParticleEmitterBase&) = delete;
    ZuParticleEmitterBase& operator=(const ZuParticleEmitterBase&) = delete;

    virtual void zuinit() {}
    virtual void zudestroy() {}
    // Ages the emitter; false once it has outlived selfMaxLife.
    virtual bool update(float dt);
    // Returns how many particles were woken.
    virtual int generate(ZuParticleEffect* effect, float dt);
    virtual void _assembleParticleLife(ZuParticle* particle);
    virtual void _assembleParticleBase(ZuParticle* particle) = 0;

    void setRandom(ZuRandom* source) { random = source; }
    void setGenerateSpeed(int speed) { generateSpeed = speed; }
    int getGenerateSpeed() const { return generateSpeed; }
    void setParticleSpeed(float speed) { particleSpeed = speed; }
    // Angles are kept as 360 minus the given ones: y grows upwards here.
    void setMinAndMaxRotation(int min, int max);
    void setMinAndMaxPalstance(int min, int max);
    void setParticleMinMaxLife(float min, float max);
    // A negative time becomes 0, which means "never stops".
    void setSelfMaxlifeTime(float seconds) { selfMaxLife = seconds < 0.0f ? 0.0f : seconds; }
    float getSelfMaxlifeTime() const { return selfMaxLife; }
    float getCurLifeTime() const { return curLifeTime; }
    void addLifeTime(float seconds) { curLifeTime += seconds; }
    void setEmmitEndlife() { emitEnd = true; }
    int getMinRotation() const { return minRotation; }
    int getMaxRotation() const { return maxRotation; }

protected:
    ZuRandom* random = nullptr;
    int generateSpeed = 100;
    float particleSpeed = 0.0f;
    int minRotation = 0, maxRotation = 360;
    int minPalstance = 0, maxPalstance = 0;
    float minLife = 0.0f, maxLife = 10.0f;
    float curLifeTime = 0.0f;
    bool emitEnd = false;
    float selfMaxLife = -1.0f;
    float genAccum = 0.0f;
};
