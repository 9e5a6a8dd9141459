#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/Parameter.h"

/// A folded hat: brims below, web on top at no turn of the section; millimetres.
///
/// Middle line with brims outward, t = espessura, T = t + raio, c = enrig - t/2, H = altura, M = mesa:
/// | node | x | y | edge from here |
/// |---|---|---|---|
/// | 1 | 0 | t/2 | brim |
/// | 2 | enrig - T | t/2 | bend, anticlockwise |
/// | 3 | c | T | leg |
/// | 4 | c | H - T | bend, clockwise |
/// | 5 | c + T - t/2 | H - t/2 | web |
/// | 6 | c + M - T - t/2 | H - t/2 | bend, clockwise |
/// | 7 | c + M - t | H - T | leg |
/// | 8 | c + M - t | T | bend, anticlockwise |
/// | 9 | c + M + T - 3/2 t | t/2 | brim |
/// | 10 | M + 2 enrig - 2 t | t/2 | |
/// | origin | enrig - t + M/2 | H/2 | |
/// Without brims nodes 1, 2, 9, 10 are not there and the legs end at Y 0.
class KrCartola : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrCartola);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrCartola();
  /// A bar between two points.
  KrCartola(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double mesa,
            double espessura, double raio, double enrig, double AngleSecao);
  /// A bar from a point along an angle.
  KrCartola(const AcGePoint3d& start, KrVistas vista, double altura, double mesa, double espessura, double raio,
            double enrig, double Comprimento, double AngleSecao, double AngleVista);
  /// Copies the bar, its parameters and its middle line; with `completo` 1 also what is drawn, else it regenerates.
  KrCartola(const KrCartola* source, int completo);
  KrCartola(const KrCartola& source, int completo);
  KrCartola(const KrCartola&) = delete;
  KrCartola& operator=(const KrCartola&) = delete;

  /// Thickness of the metal.
  KR_PARAMETER(espessura)
  /// Height over everything.
  KR_PARAMETER(altura)
  /// Width of the web, outer face to outer face.
  KR_PARAMETER(mesa)
  /// Inner radius of the bends.
  KR_PARAMETER(raio)
  /// Width of the brims, from their end to the far face of the leg: positive outward, negative inward, 0 none.
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
    return std::array{&self.espessura_, &self.altura_, &self.mesa_, &self.raio_, &self.enrig_};
  }
  void generate(double AngleSecao);
  /// Writes the middle line.
  void Define_geratriz(KrGeratriz& g) const;

  std::int16_t versao_ = kVersion;
  double espessura_ = 0.0;
  double altura_ = 0.0;
  double mesa_ = 0.0;
  double raio_ = 0.0;
  double enrig_ = 0.0;
  KrGeratriz linhaMedia_;
};
