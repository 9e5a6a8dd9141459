#pragma once

#include <cstddef>
#include <vector>

#include "host/db/AcDbObject.h"
#include "host/db/AcDbSubentId.h"

/// What few objects have: made when first needed.
struct AcDbObject::Extras {
  Extras() = default;
  Extras(const Extras&) = delete;
  Extras& operator=(const Extras&) = delete;
  ~Extras() { acutRelRb(xdata); }

  AcDbVoidPtrArray reactors;  // a persistent one is its stub's address with the lowest bit set
  AcDbObjectId owner;         // of an object outside of any database
  AcDbHardOwnershipId extensionDictionary;
  resbuf* xdata = nullptr;
  AcDbFullSubentPathArray highlighted;
  AcDbHardPointerId plotStyle;          // of an entity
  std::vector<std::byte> fileGraphics;  // of an entity
  bool undoDisabled = false;
};
