#pragma once

#include "host/db/AcDbMemoryDwgFiler.h"

/// Filer of the deep clone operation. It can also stand alone: write, seek(0), read.
class AcDbDeepCloneFiler : public AcDbMemoryDwgFiler {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDeepCloneFiler);
  AcDbDeepCloneFiler() : AcDbMemoryDwgFiler(AcDb::kDeepCloneFiler) {}
  bool usesReferences() const override { return true; }
};

/// Filer of a clone into another database.
class AcDbWblockCloneFiler : public AcDbMemoryDwgFiler {
 public:
  ACRX_DECLARE_MEMBERS(AcDbWblockCloneFiler);
  AcDbWblockCloneFiler() : AcDbMemoryDwgFiler(AcDb::kWblockCloneFiler) {}
  bool usesReferences() const override { return true; }
};
