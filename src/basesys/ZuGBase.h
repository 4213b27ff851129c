#pragma once

#include "basesys/ZuRefObject.h"

class ZuAppMain;

// Base of every object that belongs to one engine. There are no process-wide
// singletons: everything reaches the other managers through its app pointer,
// so several engines can live in one process.
class ZuGBase : public ZuRefObject {
public:
    explicit ZuGBase(ZuAppMain* app) : app(app) {}
    ~ZuGBase() override { app = nullptr; }

    ZuAppMain* getApp() const { return app; }

protected:
    ZuAppMain* app;
};
