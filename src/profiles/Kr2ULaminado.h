#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/HandMadeElevation.h"
#include "profiles/Parameter.h"

/// Two rolled channels back to back, `Afastamento` apart. The start point is the lower corner of the right web's back;
/// the bar's axis passes through the middle; millimetres.
class Kr2ULaminado : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(Kr2ULaminado);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  Kr2ULaminado();
  /// A bar between two points.
  Kr2ULaminado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura, double Largura,
               double Espessura, double Afastamento, double DeslocF, double RaioDobra, double Raio1, double EixoX,
               double EspMedia, double AngleSecao, double Area, double KgMetro);
  /// A bar from a point along an angle.
  Kr2ULaminado(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura,
               double Afastamento, double DeslocF, double RaioDobra, double Raio1, double EixoX, double EspMedia,
               double AngleSecao, double AngleVista, double Comprimento, double Area, double KgMetro);
  /// Copies the bar and its parameters; with `completo` 1 also what is drawn, else it regenerates.
  Kr2ULaminado(const Kr2ULaminado* source, int completo);
  /// Copies the parameters and the turn of the section, and regenerates; nothing else of the bar.
  Kr2ULaminado(const Kr2ULaminado& source);
  Kr2ULaminado& operator=(const Kr2ULaminado&) = delete;

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
  /// From a web's back to its channel's centre of gravity.
  KR_PARAMETER(EixoX)
  /// Catalogue area, square millimetres.
  KR_PARAMETER(Area)
  /// Mean thickness of the flanges: for display, no geometry uses it.
  KR_PARAMETER(EspMedia)
  /// Gap between the backs of the webs.
  KR_PARAMETER(Afastamento)

  /// Writes the outline anew and regenerates the view shown.
  void Calcule();
  /// Writes the outline behind what it holds, and its edges as elements of the section.
  void CalculeSecao();
  /// Fill the drawn elements of one elevation by hand: the axis, lines along the bar, the two ends. Nothing here calls
  /// them.
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
  /// Twice that of one half, whatever the gap.
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
    return std::array{&self.Largura_, &self.Altura_, &self.Espessura_, &self.DeslocF_,  &self.RaioDobra_,  &self.Raio1_,
                      &self.KgMetro_, &self.EixoX_,  &self.Area_,      &self.EspMedia_, &self.Afastamento_};
  }
  HandMadeElevation::Edges edgesByHand() const;

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
  double Afastamento_ = 0.0;
};
