#include "host/db/AcDbDwgFiler.h"

#include "host/db/AcDbDeepCloneFiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDwgFiler, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbMemoryDwgFiler, AcDbDwgFiler)
ACRX_CONS_DEFINE_MEMBERS(AcDbDeepCloneFiler, AcDbMemoryDwgFiler, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbWblockCloneFiler, AcDbMemoryDwgFiler, 0)

Acad::ErrorStatus AcDbDwgFiler::dwgVersion(AcDb::AcDbDwgVersion& version,
                                           AcDb::MaintenanceReleaseVersion& maint) const {
  version = AcDb::kDHL_CURRENT;
  maint = AcDb::kMReleaseCurrent;
  return Acad::eOk;
}
