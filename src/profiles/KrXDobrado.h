#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/MiddleLine.h"
#include "profiles/Parameter.h"

/// A cross of two folded angles, heel to heel, `gap` apart, turned by 45 degrees, one the mirror image of the other;
/// millimetres.
///
/// The right half is the middle line of a `KrCantoneiraDobrada`, turned anticlockwise by 45 degrees so that its heel
/// points to -X. Its last node carries the marker of a wall of `espessura`; the mirror image follows. The origin is
/// half the gap to the left of the heel's outer face, at the height of the centre of its bend.
class KrXDobrado : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrXDobrado);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrXDobrado();
  /// A bar between two points.
  KrXDobrado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double aba1, double aba2,
             double espessura, double raio, double ang_int, double gap, double AngleSecao, double enrig);
  /// A bar from a point along an angle.
  KrXDobrado(const AcGePoint3d& start, KrVistas vista, double aba1, double aba2, double espessura, double raio,
             double ang_int, double gap, double Comprimento, double AngleSecao, double AngleVista, double enrig);
  /// Copies the bar, its parameters and its middle line; with `completo` 1 also what is drawn, else it regenerates.
  KrXDobrado(const KrXDobrado* source, int completo);
  KrXDobrado(const KrXDobrado& source, int completo);
  KrXDobrado(const KrXDobrado&) = delete;
  KrXDobrado& operator=(const KrXDobrado&) = delete;

  /// Thickness of the metal.
  KR_PARAMETER(espessura)
  /// One leg of each angle.
  KR_PARAMETER(aba1)
  /// The other leg of each angle.
  KR_PARAMETER(aba2)
  /// Inner radius of the bends.
  KR_PARAMETER(raio)
  /// Inner angle of the bend between the legs.
  KR_PARAMETER(ang_int)
  /// Length of the lips over everything: positive inward, negative outward, 0 none.
  KR_PARAMETER(enrig)
  /// Gap between the heels.
  KR_PARAMETER(gap)

  void getPerfil(ACHAR* buffer) const override;
  void getDimensoes(ACHAR* buffer) const override;
  /// Of the middle line at its thickness, both halves.
  double getArea() const override;
  /// Twice that of one angle, whatever the gap.
  double getPerimetro() const override;
  double getAltura() override;
  double getEspessura() override;
  double getLargura() override;
  /// The thickness and the developed length of each half.
  AcArray<double> GeratrizLength() override;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  void subList() const override;

 private:
  static constexpr std::int16_t kVersion = 1;

  /// The parameters in the order of the file.
  template <class Self>
  static auto filed(Self& self) {
    return std::array{&self.espessura_, &self.aba1_,  &self.aba2_, &self.raio_,
                      &self.ang_int_,   &self.enrig_, &self.gap_};
  }
  void generate(double AngleSecao);
  /// Writes the middle line.
  void Define_geratriz(KrGeratriz& g) const;
  /// The half that stands first in the line.
  FoldedAngle half() const;

  std::int16_t versao_ = kVersion;
  double espessura_ = 0.0;
  double aba1_ = 0.0;
  double aba2_ = 0.0;
  double raio_ = 0.0;
  double ang_int_ = 0.0;
  double enrig_ = 0.0;
  double gap_ = 0.0;
  KrGeratriz linhaMedia_;
};
