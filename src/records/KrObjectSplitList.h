#pragma once

#include "records/KrObjectArray.h"
#include "records/KrObjectSplit.h"

/// The gaps across a bar.
class KrObjectSplitList : public KrObjectArray<KrObjectSplit> {
 public:
  /// Files the splits with their modification data. The filer's status.
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  /// Replaces the list by a filed one. `Acad::eMakeMeProxy` for a version that isn't known, with the list as it was; an
  /// error of a split's data is ignored. The filer's status.
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  /// Writes version and count only: positions and widths are lost. The filer's status.
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  /// Makes as many splits of zero values as the count says. `Acad::eInvalidResBuf` for a wrong group, which goes back
  /// to the filer; the list stays as it was if that was the first group, else it is empty. Else the filer's status.
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;

  void zOffset(double d);
  void purgeCData(AcRxClass* classe);
};
