#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/Parameter.h"

/// A rectangular hollow section of one thickness with rounded corners, its lower left outer corner at the section's
/// zero; millimetres. It has no DXF form: it comes back from DXF empty.
///
/// Middle line, t = espessura, r = raio, H = altura, L = largura; b a quarter bend, clockwise:
/// | node | x | y | bulge |
/// |---|---|---|---|
/// | 1 | L/2 | t/2 | 0 |
/// | 2 | r + t | t/2 | b |
/// | 3 | t/2 | r + t | 0 |
/// | 4 | t/2 | H - (r + t) | b |
/// | 5 | r + t | H - t/2 | 0 |
/// | 6 | L - t - r | H - t/2 | b |
/// | 7 | L - t/2 | H - (r + t) | 0 |
/// | 8 | L - t/2 | r + t | b |
/// | 9 | L - t - r | t/2 | 0 |
/// | 10 | L/2 | t/2 | 0 |
/// | origin | L/2 | H/2 | |
class KrBox : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrBox);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrBox();
  /// A bar between two points.
  KrBox(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double largura,
        double espessura, double raio, double AngleSecao);
  /// A bar from a point along an angle.
  KrBox(const AcGePoint3d& start, KrVistas vista, double altura, double largura, double espessura, double raio,
        double Comprimento, double AngleSecao, double AngleVista);
  /// Copies the bar, its parameters and its middle line; with `completo` 1 also what is drawn, else it regenerates.
  KrBox(const KrBox* source, int completo);
  KrBox(const KrBox& source, int completo);
  KrBox(const KrBox&) = delete;
  KrBox& operator=(const KrBox&) = delete;

  /// Thickness of the metal.
  KR_PARAMETER(espessura)
  /// Height over everything.
  KR_PARAMETER(altura)
  /// Width over everything.
  KR_PARAMETER(largura)
  /// Inner radius of the corners.
  KR_PARAMETER(raio)

  void getPerfil(ACHAR* buffer) const override;
  void getDimensoes(ACHAR* buffer) const override;
  /// Of the middle line at its thickness.
  double getArea() const override;
  /// Outer and inner outline, less twice the thickness.
  double getPerimetro() const override;
  double getAltura() override;
  double getEspessura() override;
  double getLargura() override;
  /// The thickness and the developed length.
  AcArray<double> GeratrizLength() override;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  /// Reads and writes nothing. The filer's status.
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  void subList() const override;

 private:
  static constexpr std::int16_t kVersion = 1;

  /// The parameters in the order of the file.
  template <class Self>
  static auto filed(Self& self) {
    return std::array{&self.espessura_, &self.altura_, &self.largura_, &self.raio_};
  }
  void generate(double AngleSecao);
  /// Writes the middle line.
  void Define_geratriz(KrGeratriz& g) const;

  std::int16_t versao_ = kVersion;
  double espessura_ = 0.0;
  double altura_ = 0.0;
  double largura_ = 0.0;
  double raio_ = 0.0;
  KrGeratriz linhaMedia_;
};
