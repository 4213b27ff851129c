#pragma once

#include "render/material/ZuMaterial.h"

// A material that knows its engine, for subclasses that take their program
// in init() from the shader table.
class ZuGMaterial : public ZuMaterial {
public:
    explicit ZuGMaterial(ZuAppMain* app) : ZuMaterial(app), app(app) {}
    ZuGMaterial(ZuAppMain* app, const char* key) : ZuMaterial(app, key), app(app) {}

    ZuAppMain* getApp() const { return app; }

protected:
    ZuAppMain* app;
};
