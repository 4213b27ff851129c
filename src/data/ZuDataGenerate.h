#pragma once

#include "basesys/ZuListenBase.h"

// Base of every data source the data manager notices once a frame.
class ZuDataGenerate : public ZuListenBase {
public:
    int dataType = 0;
};
