#pragma once

#include <span>

#include "host/rx/rx.h"

/// How one of the module's classes is registered and found again.
struct ModuleClass {
  void (*rxInit)();
  AcRxClass* (*desc)();
};

/// The classes that the module's start registers, in the order required; the unload removes them in the reverse order.
std::span<const ModuleClass> moduleClasses();
