#pragma once

#include <cstdint>
#include <memory>

#include "object/KrObject.h"
#include "profiles/Parameter.h"

/// A profile whose section the client gives: the line through the middle of the metal, and its thickness; millimetres.
///
/// It can be drawn, listed and measured, but none of it is filed, not even the base's fields: a file gives it back
/// empty. `getAltura`, `getLargura`, `getEspessura` and `getPerimetro` are 0.
class KrUser : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrUser);

  /// Nothing drawn, no middle line.
  KrUser();
  /// Copies the base and the thickness, and shares the middle line with the source.
  KrUser(const KrUser& source);
  KrUser& operator=(const KrUser& source);

  /// Thickness of the metal.
  KR_PARAMETER(espessura)
  /// Takes a copy of a middle line, which a node with the section's origin must end. Stores and regenerates nothing.
  Acad::ErrorStatus setLinhaMedia(const KrGeratriz& linha);
  /// Thickens the middle line to the outline and regenerates the view shown; without a middle line nothing happens.
  void Calcule();

  /// Of the middle line at its thickness; 0 without a middle line.
  double getArea() const override;
  /// The developed lengths of the strips alone, no thickness between them.
  AcArray<double> GeratrizLength() override;

  /// Read and write nothing. The filer's status.
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  std::int16_t versao_ = 1;
  std::shared_ptr<KrGeratriz> linhaMedia_;
  double espessura_ = 0.0;
};
