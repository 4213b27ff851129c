#pragma once

// The engine's containers in one include.
#include "basesys/qzArray.h"
#include "basesys/qzList.h"
#include "basesys/qzMap.h"
#include "basesys/qzMath.h"
#include "basesys/qzString.h"
