#pragma once

#include "basesys/ZuGBase.h"

// Base of the typed file readers (PNG, curve files, models).
class ZuFileLoader : public ZuGBase {
public:
    explicit ZuFileLoader(ZuAppMain* app);
    ~ZuFileLoader() override;

    // Reads path through the engine's file manager; what comes back is the
    // subclass's. 0 here.
    virtual int load(const char* path);
};
