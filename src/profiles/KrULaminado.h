#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "object/KrObject.h"
#include "profiles/HandMadeElevation.h"
#include "profiles/Parameter.h"

/// A rolled channel with sloped flanges: its back stands upwards from the start point, its flanges point along X. The
/// bar's axis passes through (`EixoX`, `Altura` / 2); millimetres.
///
/// The flanges always rise by one in six, whatever slope the profile has by its standard.
class KrULaminado : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrULaminado);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrULaminado();
  /// A bar between two points.
  KrULaminado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura, double Largura,
              double Espessura, double DeslocF, double RaioDobra, double Raio1, double EixoX, double EspMedia,
              double AngleSecao, double Area, double KgMetro);
  /// A bar from a point along an angle.
  KrULaminado(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura, double DeslocF,
              double RaioDobra, double Raio1, double EixoX, double EspMedia, double AngleSecao, double AngleVista,
              double Comprimento, double Area, double KgMetro);
  /// A bar from a point, its fillets and the mean flange thickness as thick as the web, `DeslocF` by `calcDeslocF`, its
  /// centre of gravity in a third of the width.
  KrULaminado(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura,
              double AngleSecao, double AngleVista, double Comprimento, double Area, double KgMetro);
  /// Copies the bar and its parameters; with `completo` 1 also what is drawn, else it regenerates.
  KrULaminado(const KrULaminado* source, int completo);
  /// Copies the parameters and the turn of the section, and regenerates; nothing else of the bar.
  KrULaminado(const KrULaminado& source);
  KrULaminado& operator=(const KrULaminado&) = delete;

  /// Width of a flange.
  KR_PARAMETER(Largura)
  /// Height of the section.
  KR_PARAMETER(Altura)
  /// Thickness of the web.
  KR_PARAMETER(Espessura)
  /// From a flange's outer face to the end of the root fillet on the web.
  KR_PARAMETER(DeslocF)
  /// Root fillet between web and flange.
  KR_PARAMETER(RaioDobra)
  /// Fillet of a flange's toe.
  KR_PARAMETER(Raio1)
  /// Catalogue weight, kilograms per metre.
  KR_PARAMETER(KgMetro)
  /// From the web's back to the centre of gravity.
  KR_PARAMETER(EixoX)
  /// Catalogue area, square millimetres.
  KR_PARAMETER(Area)
  /// Mean thickness of the flanges: for display, no geometry uses it.
  KR_PARAMETER(EspMedia)
  /// `DeslocF` of a channel of that width and web, its fillets as large as the web is thick.
  static double calcDeslocF(double largura, double espessura);

  /// Writes the outline anew and regenerates the view shown.
  void Calcule();
  /// Writes the outline behind what it holds, and its edges as elements of the section.
  void CalculeSecao();
  /// Fill the drawn elements of one elevation by hand: the axis, lines along the bar, the two ends. Left is as right,
  /// and below as above. They count from the whole height where half of it is meant; nothing here calls them.
  void CalculeDireita();
  void CalculeEsquerda();
  void CalculeSuperior();
  void CalculeInferior();

  void getPerfil(ACHAR* buffer) const override;
  void getDimensoes(ACHAR* buffer) const override;
  /// The catalogue weight, and 1.
  int getLinearWeight(double& peso) const override;
  /// The catalogue area.
  double getArea() const override;
  /// Of the outline, as drawn.
  double getPerimetro() const override;
  double getAltura() override;
  double getEspessura() override;
  double getLargura() override;

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
    return std::array{&self.Largura_, &self.Altura_,  &self.Espessura_, &self.DeslocF_, &self.RaioDobra_,
                      &self.Raio1_,   &self.KgMetro_, &self.EixoX_,     &self.Area_,    &self.EspMedia_};
  }
  /// The lines of a flange's thickness and the outer ones, at both sides.
  std::vector<HandMadeElevation::Line> linesOverTheHeight(bool hidden) const;
  /// The web at one side, 1 to the left of the bar and -1 to the right, and the toes at the other.
  std::vector<HandMadeElevation::Line> linesOverTheWidth(double sideOfTheBack) const;
  void fillFromTheSide(KrVistas vista);
  void fillFromAbove(KrVistas vista);

  std::int16_t versao_ = kVersion;
  double Largura_ = 0.0;
  double Altura_ = 0.0;
  double Espessura_ = 0.0;
  double DeslocF_ = 0.0;
  double RaioDobra_ = 0.0;
  double Raio1_ = 0.0;
  double KgMetro_ = 0.0;
  double EixoX_ = 0.0;
  double Area_ = 0.0;
  double EspMedia_ = 0.0;
};
