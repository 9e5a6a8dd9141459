#pragma once

/// The module's side library.
#include "support/SideLibrary.h"
