#pragma once

/// The run-time extension layer: types, statuses, arrays, run-time classes and dictionaries.
#include "host/rx/AcArray.h"
#include "host/rx/AcHeapOperators.h"
#include "host/rx/AcRx.h"
#include "host/rx/AcRxAbort.h"
#include "host/rx/AcRxApp.h"
#include "host/rx/AcRxClass.h"
#include "host/rx/AcRxDictionary.h"
#include "host/rx/AcRxMacros.h"
#include "host/rx/AcRxObject.h"
#include "host/rx/AdeskTypes.h"
#include "host/rx/ErrorStatus.h"
