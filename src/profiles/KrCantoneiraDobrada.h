#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/Parameter.h"

/// A folded angle, with or without lips at both legs: `aba1` upright, the heel at the top left, `aba2` to the right at
/// no turn of the section; millimetres.
///
/// Middle line with a right angle and lips inward, t = espessura, T = t + raio, L = enrig, A = aba1, B = aba2:
/// | node | x | y | edge from here |
/// |---|---|---|---|
/// | 1 | L - t/2 | t/2 | lip |
/// | 2 | T - t/2 | t/2 | bend, clockwise |
/// | 3 | 0 | T | upright leg |
/// | 4 | 0 | A - T | bend of the heel, clockwise |
/// | 5 | T - t/2 | A - t/2 | other leg |
/// | 6 | B - T - t/2 | A - t/2 | bend, clockwise |
/// | 7 | B - t | A - T | lip |
/// | 8 | B - t | A - L | |
/// | origin | B/3 - t/2 | 2/3 A | |
/// Without lips nodes 1, 2, 7, 8 are not there, and the legs end at (0, 0) and (B - t/2, A - t/2).
class KrCantoneiraDobrada : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrCantoneiraDobrada);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrCantoneiraDobrada();
  /// A bar between two points.
  KrCantoneiraDobrada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double aba1, double aba2,
                      double espessura, double raio, double ang_int, double AngleSecao, double enrig);
  /// A bar from a point along an angle.
  KrCantoneiraDobrada(const AcGePoint3d& start, KrVistas vista, double aba1, double aba2, double espessura, double raio,
                      double ang_int, double Comprimento, double AngleSecao, double AngleVista, double enrig);
  /// Copies the bar, its parameters and its middle line; with `completo` 1 also what is drawn, else it regenerates.
  KrCantoneiraDobrada(const KrCantoneiraDobrada* source, int completo);
  KrCantoneiraDobrada(const KrCantoneiraDobrada& source, int completo);
  KrCantoneiraDobrada(const KrCantoneiraDobrada&) = delete;
  KrCantoneiraDobrada& operator=(const KrCantoneiraDobrada&) = delete;

  /// Thickness of the metal.
  KR_PARAMETER(espessura)
  /// Upright leg, from its end to the outer face of the other.
  KR_PARAMETER(aba1)
  /// The other leg, likewise.
  KR_PARAMETER(aba2)
  /// Inner radius of the bends.
  KR_PARAMETER(raio)
  /// Inner angle of the bend between the legs.
  KR_PARAMETER(ang_int)
  /// Length of the lips over everything: positive inward, negative outward, 0 none.
  KR_PARAMETER(enrig)

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
    return std::array{&self.espessura_, &self.aba1_, &self.aba2_, &self.raio_, &self.ang_int_, &self.enrig_};
  }
  void generate(double AngleSecao);
  /// Writes the middle line.
  void Define_geratriz(KrGeratriz& g) const;

  std::int16_t versao_ = kVersion;
  double espessura_ = 0.0;
  double aba1_ = 0.0;
  double aba2_ = 0.0;
  double raio_ = 0.0;
  double ang_int_ = 0.0;
  double enrig_ = 0.0;
  KrGeratriz linhaMedia_;
};
