#pragma once

#include "basesys/ZuSysBase.h"

// The basic system: holds the font module that text nodes share.
class ZuBasicSys : public ZuSysBase {
public:
    explicit ZuBasicSys(ZuAppMain* app) : ZuSysBase(app, "ZuBasicSys") {}

    void* getFontModule() const { return m_fontModule; }

private:
    void* m_fontModule = nullptr;
};
