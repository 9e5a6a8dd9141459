#pragma once

/// The operations of the product's companion libraries.
#include "host/companion/CloseInChar.h"
#include "host/companion/KrConfigCenter.h"
#include "host/companion/KrConfigSection.h"
#include "host/companion/KrGeLib.h"
#include "host/companion/KrString.h"
#include "host/companion/PolygonEdges.h"
