#pragma once

#include "basesys/ZuAppMain.h"

// The engine for a host that owns both thread and GL context and drives the
// frames itself. The off-screen context calls are accepted for the sake of
// hosts written against the threaded engine; with the host's GL they do
// nothing.
class ZuAppMainSync : public ZuAppMain {
public:
    virtual void createOffGLContext(const char* name, int width, int height);
    virtual void destroyOffGLContext(const char* name);
};
