// The classes of the example module, for the whole program.

#include "object/ExampleExtension.h"

ACRX_CONS_DEFINE_MEMBERS(ErectionMark, KrObjectExtension, 1)
ACRX_CONS_DEFINE_MEMBERS(BoltData, KrObjectModCData, 1)
