#include "host/db/entities/entities.h"

namespace {

// At load, so that whoever links or opens the host finds the entities in the class dictionary.
[[maybe_unused]] const bool kRegistered = [] {
  AcDb2dPolyline::rxInit();
  AcDb3dPolyline::rxInit();
  AcDbVertex::rxInit();
  AcDb2dVertex::rxInit();
  AcDb3dPolylineVertex::rxInit();
  AcDbSequenceEnd::rxInit();
  AcDbBlockBegin::rxInit();
  AcDbBlockEnd::rxInit();
  AcDbBlockReference::rxInit();
  AcDbMInsertBlock::rxInit();
  AcDbAttribute::rxInit();
  AcDbAttributeDefinition::rxInit();
  AcDbHatch::rxInit();
  AcDbLeader::rxInit();
  AcDbDimension::rxInit();
  AcDbAlignedDimension::rxInit();
  AcDbRotatedDimension::rxInit();
  AcDbOrdinateDimension::rxInit();
  AcDbRadialDimension::rxInit();
  AcDbDiametricDimension::rxInit();
  AcDb3PointAngularDimension::rxInit();
  AcDb2LineAngularDimension::rxInit();
  AcDbViewport::rxInit();
  AcDbPoint::rxInit();
  AcDbTrace::rxInit();
  AcDbSolid::rxInit();
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
