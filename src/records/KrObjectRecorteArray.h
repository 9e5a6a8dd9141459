#pragma once

#include "records/KrObjectArray.h"
#include "records/KrObjectRecorte.h"

/// The notches of one view direction of a member.
class KrObjectRecorteArray : public KrObjectArray<KrObjectRecorte> {
 public:
  /// Files the notches with their modification data. The filer's status.
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  /// Replaces the list by a filed one, of any version; a negative version leaves it empty. An error of the data of a
  /// notch ends reading and keeps the notches read so far; else the filer's status.
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  /// Files the notches without modification data. The filer's status.
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  /// Replaces the list by what `dxfOutFields` wrote. A group of a wrong code abandons the read: the expected code is
  /// thrown as an `int`, for the caller to catch.
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;

  /// Apply the operation of that name to each notch.
  void transformBy(const AcGeMatrix2d& matrix);
  void translate(const AcGeVector2d& v);
  void xOffSet(double d);
  void inverteRecortes(double comprimento);
  void purgeCData(AcRxClass* classe);
  /// The same for the notches whose index is in `which`.
  void translate(const AcGeVector2d& v, const AcArray<int>& which);
  void xOffSet(double d, const AcArray<int>& which);
};
