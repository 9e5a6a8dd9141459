#include "host/db/entities/entities.h"

namespace {

// At load, so that whoever links or opens the host finds the entities in the class dictionary.
[[maybe_unused]] const bool kRegistered = [] {
  AcDbLine::rxInit();
  AcDbArc::rxInit();
  AcDbCircle::rxInit();
  AcDbPolyline::rxInit();
  AcDbText::rxInit();
  AcDbMText::rxInit();
  acrxBuildClassHierarchy();
  return true;
}();

}  // namespace
