#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/MiddleLine.h"
#include "profiles/Parameter.h"

/// A box of two folded channels, toes facing, `gap` apart, one the mirror image of the other; millimetres.
///
/// The left half is the middle line of a `KrUDobrado` with both flanges `mesa` and right angles. Its last node carries
/// the marker of a wall of `espessura`; the mirror image follows. The origin is half the gap to the right of the toes,
/// at half the height.
class KrCaixaDobrado : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrCaixaDobrado);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrCaixaDobrado();
  /// A bar between two points.
  KrCaixaDobrado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double mesa,
                 double espessura, double raio, double gap, double AngleSecao, double enrig);
  /// A bar from a point along an angle.
  KrCaixaDobrado(const AcGePoint3d& start, KrVistas vista, double altura, double mesa, double espessura, double raio,
                 double gap, double Comprimento, double AngleSecao, double AngleVista, double enrig);
  /// Copies the bar, its parameters and its middle line; with `completo` 1 also what is drawn, else it regenerates.
  KrCaixaDobrado(const KrCaixaDobrado* source, int completo);
  KrCaixaDobrado(const KrCaixaDobrado& source, int completo);
  KrCaixaDobrado(const KrCaixaDobrado&) = delete;
  KrCaixaDobrado& operator=(const KrCaixaDobrado&) = delete;

  /// Thickness of the metal.
  KR_PARAMETER(espessura)
  /// Height of the webs, outer face to outer face.
  KR_PARAMETER(altura)
  /// Width of each channel's flanges.
  KR_PARAMETER(mesa)
  /// Inner radius of the bends.
  KR_PARAMETER(raio)
  /// Length of the lips over everything: positive inward, negative outward, 0 none.
  KR_PARAMETER(enrig)
  /// Gap between the toes.
  KR_PARAMETER(gap)

  void getPerfil(ACHAR* buffer) const override;
  void getDimensoes(ACHAR* buffer) const override;
  /// Of the middle line at its thickness, both halves.
  double getArea() const override;
  /// That of one channel, not doubled.
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
    return std::array{&self.espessura_, &self.altura_, &self.mesa_, &self.raio_, &self.enrig_, &self.gap_};
  }
  void generate(double AngleSecao);
  /// Writes the middle line.
  void Define_geratriz(KrGeratriz& g) const;
  /// The half that stands first in the line.
  FoldedChannel half() const;

  std::int16_t versao_ = kVersion;
  double espessura_ = 0.0;
  double altura_ = 0.0;
  double mesa_ = 0.0;
  double raio_ = 0.0;
  double enrig_ = 0.0;
  double gap_ = 0.0;
  KrGeratriz linhaMedia_;
};
