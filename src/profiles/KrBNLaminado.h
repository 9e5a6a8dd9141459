#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/HandMadeElevation.h"
#include "profiles/Parameter.h"

/// A rolled equal angle on its corner: the heel points to -X, both toes begin on the Y axis through the start point.
/// The bar's axis passes through (`EixoX`, the heel's height); millimetres.
///
/// The round of a toe stands out beyond the Y axis by `Espessura` (sqrt 2 - 1) / sqrt 2; `getLargura` leaves it out.
class KrBNLaminado : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrBNLaminado);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrBNLaminado();
  /// A bar between two points.
  KrBNLaminado(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Aba, double Espessura,
               double EixoX, double RaioDobra, double AngleSecao, double KgMetro, double Area);
  /// A bar from a point along an angle.
  KrBNLaminado(const AcGePoint3d& start, KrVistas vista, double Aba, double Espessura, double EixoX, double RaioDobra,
               double AngleSecao, double AngleVista, double Comprimento, double KgMetro, double Area);
  /// Copies the bar and its parameters; with `completo` 1 also what is drawn, else it regenerates.
  KrBNLaminado(const KrBNLaminado* source, int completo);
  /// Copies the parameters and the turn of the section, and regenerates; nothing else of the bar.
  KrBNLaminado(const KrBNLaminado& source);
  KrBNLaminado& operator=(const KrBNLaminado&) = delete;

  /// Length of both legs.
  KR_VIRTUAL_PARAMETER(Aba)
  /// Thickness of the legs, and radius of their toes.
  KR_VIRTUAL_PARAMETER(Espessura)
  /// Fillet of the inner corner.
  KR_VIRTUAL_PARAMETER(RaioDobra)
  /// From the start point to the bar's axis along X: negative for one within the angle.
  KR_VIRTUAL_PARAMETER(EixoX)
  /// Catalogue weight, kilograms per metre.
  KR_VIRTUAL_PARAMETER(KgMetro)
  /// Catalogue area, square millimetres.
  KR_VIRTUAL_PARAMETER(Area)

  /// Takes direction and length from the two points, writes the outline anew and regenerates the view shown.
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

  /// The parameters in the order of the file: the weight stands twice, and the second counts.
  template <class Self>
  static auto filed(Self& self) {
    return std::array{&self.Aba_,   &self.Espessura_, &self.RaioDobra_, &self.KgMetro_,
                      &self.EixoX_, &self.KgMetro_,   &self.Area_};
  }
  HandMadeElevation::Edges edgesByHand() const;

  std::int16_t versao_ = kVersion;
  double Aba_ = 0.0;
  double Espessura_ = 0.0;
  double RaioDobra_ = 0.0;
  double KgMetro_ = 0.0;
  double EixoX_ = 0.0;
  double Area_ = 0.0;
};
