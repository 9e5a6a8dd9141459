#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/Parameter.h"

/// A folded Z, with or without lips: lower flange to the left of the web, upper flange to the right at no turn of the
/// section; millimetres.
///
/// Middle line with right angles and lips inward, t = espessura, T = t + raio, L = enrig, H = altura, w = mesa1 - t/2:
/// | node | x | y | edge from here |
/// |---|---|---|---|
/// | 1 | t/2 | L - t/2 | lip |
/// | 2 | t/2 | T - t/2 | bend, anticlockwise |
/// | 3 | T | 0 | lower flange |
/// | 4 | mesa1 - T | 0 | bend, anticlockwise |
/// | 5 | w | T - t/2 | web |
/// | 6 | w | H - T - t/2 | bend, clockwise |
/// | 7 | w + T - t/2 | H - t | upper flange |
/// | 8 | w + mesa2 - T - t/2 | H - t | bend, clockwise |
/// | 9 | w + mesa2 - t | H - T - t/2 | lip |
/// | 10 | w + mesa2 - t | H - L - t/2 | |
/// | origin | w | H/2 - t/2 | |
/// Without lips nodes 1, 2, 9, 10 are not there. A lip's bend has the inner angle pi/2 + ang_enrig and its own
/// set-back, so that the flange keeps its width to the outer corner.
class KrZDobrado : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrZDobrado);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrZDobrado();
  /// A bar between two points.
  KrZDobrado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double mesa1,
             double mesa2, double espessura, double raio, double ang_int1, double ang_int2, double AngleSecao,
             double enrig, double ang_enrig);
  /// A bar from a point along an angle.
  KrZDobrado(const AcGePoint3d& start, KrVistas vista, double altura, double mesa1, double mesa2, double espessura,
             double raio, double ang_int1, double ang_int2, double Comprimento, double AngleSecao, double AngleVista,
             double enrig, double ang_enrig);
  /// Copies the bar, its parameters and its middle line; with `completo` 1 also what is drawn, else it regenerates.
  KrZDobrado(const KrZDobrado* source, int completo);
  KrZDobrado(const KrZDobrado& source, int completo);
  KrZDobrado(const KrZDobrado&) = delete;
  KrZDobrado& operator=(const KrZDobrado&) = delete;

  /// Thickness of the metal.
  KR_PARAMETER(espessura)
  /// Height of the web, outer face to outer face, along its slope.
  KR_PARAMETER(altura)
  /// Width of the lower flange, its end to the outer face of the web.
  KR_PARAMETER(mesa1)
  /// Width of the upper flange.
  KR_PARAMETER(mesa2)
  /// Inner radius of the bends.
  KR_PARAMETER(raio)
  /// Inner angle at the lower bend of the web.
  KR_PARAMETER(ang_int1)
  /// Inner angle at the upper bend of the web.
  KR_PARAMETER(ang_int2)
  /// Length of the lips over everything: positive towards the web, negative away from it, 0 none.
  KR_PARAMETER(enrig)
  /// By how much a lip opens beyond the square, radians.
  KR_PARAMETER(ang_enrig)

  void getPerfil(ACHAR* buffer) const override;
  void getDimensoes(ACHAR* buffer) const override;
  /// Of the middle line at its thickness.
  double getArea() const override;
  double getPerimetro() const override;
  double getAltura() override;
  double getEspessura() override;
  double getLargura() override;
  /// The thickness and the developed length.
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
    return std::array{&self.espessura_, &self.altura_,   &self.mesa1_, &self.mesa2_,    &self.raio_,
                      &self.ang_int1_,  &self.ang_int2_, &self.enrig_, &self.ang_enrig_};
  }
  void generate(double AngleSecao);
  /// Writes the middle line.
  void Define_geratriz(KrGeratriz& g) const;

  std::int16_t versao_ = kVersion;
  double espessura_ = 0.0;
  double altura_ = 0.0;
  double mesa1_ = 0.0;
  double mesa2_ = 0.0;
  double raio_ = 0.0;
  double ang_int1_ = 0.0;
  double ang_int2_ = 0.0;
  double enrig_ = 0.0;
  double ang_enrig_ = 0.0;
  KrGeratriz linhaMedia_;
};
