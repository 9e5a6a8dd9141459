#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/HandMadeElevation.h"
#include "profiles/Parameter.h"

/// Two rolled angles turned to each other by half a turn, toes on toes: a box. The bar's axis passes through its
/// middle; millimetres.
///
/// The rounds of the toes touch in one point each: the box is wider and higher than its angles by `GetD_Arco`, which
/// `getLargura` and `getAltura` leave out.
class KrCantLaminadaCaixa : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrCantLaminadaCaixa);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrCantLaminadaCaixa();
  /// A bar between two points.
  KrCantLaminadaCaixa(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura, double Largura,
                      double Espessura, double RaioDobra, double AngleSecao, double KgMetro, double Area);
  /// A bar from a point along an angle.
  KrCantLaminadaCaixa(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura,
                      double RaioDobra, double AngleSecao, double AngleVista, double Comprimento, double KgMetro,
                      double Area);
  /// Copies the bar and its parameters; with `completo` 1 also what is drawn, else it regenerates.
  KrCantLaminadaCaixa(const KrCantLaminadaCaixa* source, int completo);
  /// Copies the parameters and the turn of the section, and regenerates; nothing else of the bar.
  KrCantLaminadaCaixa(const KrCantLaminadaCaixa& source);
  KrCantLaminadaCaixa& operator=(const KrCantLaminadaCaixa&) = delete;

  /// Length of the upright leg.
  KR_VIRTUAL_PARAMETER(Altura)
  /// Length of the lying leg.
  KR_VIRTUAL_PARAMETER(Largura)
  /// Thickness of the legs, and radius of their toes.
  KR_VIRTUAL_PARAMETER(Espessura)
  /// Fillet of the inner corner.
  KR_VIRTUAL_PARAMETER(RaioDobra)
  /// Kept and filed only.
  KR_VIRTUAL_PARAMETER(EixoX)
  /// Kept and filed only.
  KR_VIRTUAL_PARAMETER(EixoY)
  /// Catalogue area, square millimetres.
  KR_VIRTUAL_PARAMETER(Area)
  /// Catalogue weight, kilograms per metre.
  KR_VIRTUAL_PARAMETER(KgMetro)

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
  /// How far the second angle is moved out in X and Y for its round toes to touch those of the first.
  double GetD_Arco() const;
  void subList() const override;

 private:
  static constexpr std::int16_t kVersion = 1;

  /// The parameters in the order of the file: the width stands before the height.
  template <class Self>
  static auto filed(Self& self) {
    return std::array{&self.Largura_, &self.Altura_, &self.Espessura_, &self.RaioDobra_,
                      &self.KgMetro_, &self.EixoX_,  &self.EixoY_,     &self.Area_};
  }
  HandMadeElevation::Edges edgesByHand() const;

  std::int16_t versao_ = kVersion;
  double Altura_ = 0.0;
  double Largura_ = 0.0;
  double Espessura_ = 0.0;
  double RaioDobra_ = 0.0;
  double KgMetro_ = 0.0;
  double EixoX_ = 0.0;
  double EixoY_ = 0.0;
  double Area_ = 0.0;
};
