#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/Parameter.h"

/// An I of three welded plates, each of its own thickness: lower flange, upper flange, web; millimetres.
///
/// Middle line, three strips; a strip's thickness stands in the marker before it, the first one's is `tf1`:
/// | node | x | y | bulge |
/// |---|---|---|---|
/// | 1 | 0 | 0 | 0 |
/// | 2 | mesa1 | 0 | 6000 + tf2 |
/// | 3 | (mesa1 - mesa2) / 2 | altura - tf1/2 - tf2/2 | 0 |
/// | 4 | node 3 + mesa2 | as node 3 | 6000 + tw |
/// | 5 | mesa1 / 2 | tf1/2 | 0 |
/// | 6 | mesa1 / 2 | tf1/2 + altura - (tf2 + tf1) | 0 |
/// | origin | mesa1 / 2 | altura / 2 | |
/// The origin lies tf1/2 above the middle of the section, since Y 0 is the middle of the lower flange.
class KrISoldado : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrISoldado);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrISoldado();
  /// A bar between two points; both flanges as thick as `tf`.
  KrISoldado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double mesa1,
             double mesa2, double tw, double tf, double AngleSecao, double KgMetro);
  /// A bar from a point along an angle; both flanges as thick as `tf`.
  KrISoldado(const AcGePoint3d& start, KrVistas vista, double altura, double mesa1, double mesa2, double tw, double tf,
             double Comprimento, double AngleSecao, double AngleVista, double KgMetro);
  /// A bar between two points, each flange of its own thickness. The view stands behind the dimensions.
  KrISoldado(const AcGePoint3d& start, const AcGePoint3d& end, double altura, double mesa1, double mesa2, double tf1,
             double tf2, double tw, KrVistas vista, double AngleSecao, double KgMetro);
  /// A bar from a point along an angle, each flange of its own thickness. The view stands behind the length.
  KrISoldado(const AcGePoint3d& start, double altura, double mesa1, double mesa2, double tf1, double tf2, double tw,
             double Comprimento, KrVistas vista, double AngleSecao, double AngleVista, double KgMetro);
  /// Copies the bar, its parameters and its middle line; with `completo` 1 also what is drawn, else it regenerates.
  KrISoldado(const KrISoldado* source, int completo);
  KrISoldado(const KrISoldado& source, int completo);
  KrISoldado(const KrISoldado&) = delete;
  KrISoldado& operator=(const KrISoldado&) = delete;

  /// Height over both flanges.
  KR_PARAMETER(altura)
  /// Width of the lower flange.
  KR_PARAMETER(mesa1)
  /// Width of the upper flange.
  KR_PARAMETER(mesa2)
  /// Thickness of the web.
  KR_PARAMETER(tw)
  /// Thickness of both flanges when they are alike to 0.01, else 0.
  KR_PARAMETER(tf)
  /// Thickness of the lower flange.
  KR_PARAMETER(tf1)
  /// Thickness of the upper flange.
  KR_PARAMETER(tf2)
  /// Catalogue weight, kilograms per metre.
  KR_PARAMETER(KgMetro)

  void getPerfil(ACHAR* buffer) const override;
  void getDimensoes(ACHAR* buffer) const override;
  /// The catalogue weight, and 1.
  int getLinearWeight(double& peso) const override;
  /// Of the three strips.
  double getArea() const override;
  /// Of the three closed rectangles, the faces where they touch too.
  double getPerimetro() const override;
  double getAltura() override;
  /// The thicker of the web and the flanges; the web when the flanges differ.
  double getEspessura() override;
  /// The wider flange.
  double getLargura() override;
  /// Thickness and length of the lower flange, the upper flange and the web.
  AcArray<double> GeratrizLength() override;

  /// Reads also the older layout, without the marker and the version and with one thickness for both flanges.
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  /// Reads the groups of version 1 only; anything else, also the version that `dxfOutFields` writes, puts
  /// `Acad::eInvalidDxfCode` into the filer.
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  void subList() const override;

 private:
  static constexpr std::int16_t kVersion = 4;

  /// The parameters that stand before the line in a file.
  template <class Self>
  static auto filed(Self& self) {
    return std::array{&self.tf_, &self.tw_, &self.altura_, &self.mesa1_, &self.mesa2_, &self.KgMetro_};
  }
  /// All parameters, as DXF has them.
  template <class Self>
  static auto parameters(Self& self) {
    return std::array{&self.tf_,    &self.tw_,      &self.altura_, &self.mesa1_,
                      &self.mesa2_, &self.KgMetro_, &self.tf1_,    &self.tf2_};
  }
  void generate(double AngleSecao);
  /// Writes the middle line.
  void Define_geratriz(KrGeratriz& g) const;

  std::int16_t versao_ = kVersion;
  double altura_ = 0.0;
  double mesa1_ = 0.0;
  double mesa2_ = 0.0;
  double tw_ = 0.0;
  double tf_ = 0.0;
  double tf1_ = 0.0;
  double tf2_ = 0.0;
  KrGeratriz linhaMedia_;
  double KgMetro_ = 0.0;
};
