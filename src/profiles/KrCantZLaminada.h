#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/HandMadeElevation.h"
#include "profiles/Parameter.h"

/// Two rolled angles turned to each other by half a turn, a Z: the first with its heel at the top left, the second
/// below and to the right with its heel at the bottom right. The bar's axis passes through the middle between them;
/// millimetres.
///
/// The constructors take the overall width in the place of `AfastamentoH`: what two angles leave of it is the gap.
/// Where they leave nothing, an alert says so and the gap becomes 0.
class KrCantZLaminada : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrCantZLaminada);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrCantZLaminada();
  /// A bar between two points.
  KrCantZLaminada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura, double Largura,
                  double Espessura, double RaioDobra, double larguraTotal, double AfastamentoV, double AngleSecao,
                  double KgMetro, double Area);
  /// A bar from a point along an angle.
  KrCantZLaminada(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura,
                  double RaioDobra, double larguraTotal, double AfastamentoV, double Comprimento, double AngleSecao,
                  double AngleVista, double KgMetro, double Area);
  /// Copies the bar and its parameters; with `completo` 1 also what is drawn, else it regenerates.
  KrCantZLaminada(const KrCantZLaminada* source, int completo);
  /// Copies the parameters and the turn of the section, and regenerates; nothing else of the bar.
  KrCantZLaminada(const KrCantZLaminada& source);
  KrCantZLaminada& operator=(const KrCantZLaminada&) = delete;

  /// Length of the upright leg.
  KR_VIRTUAL_PARAMETER(Altura)
  /// Length of the lying leg.
  KR_VIRTUAL_PARAMETER(Largura)
  /// Thickness of the legs, and radius of their toes.
  KR_VIRTUAL_PARAMETER(Espessura)
  /// Fillet of the inner corner.
  KR_VIRTUAL_PARAMETER(RaioDobra)
  /// Gap between the toes of the lying legs, across.
  KR_VIRTUAL_PARAMETER(AfastamentoH)
  /// Gap between the feet of the upright legs, up and down.
  KR_VIRTUAL_PARAMETER(AfastamentoV)
  /// From the first node to the axis along X, as the outline has it.
  KR_VIRTUAL_PARAMETER(EixoX)
  /// Of the axis along Y, counted from the start point, as the outline has it.
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
  void subList() const override;

 private:
  static constexpr std::int16_t kVersion = 1;

  /// The parameters in the order of the file.
  template <class Self>
  static auto filed(Self& self) {
    return std::array{&self.Altura_,       &self.Largura_, &self.Espessura_, &self.RaioDobra_, &self.AfastamentoH_,
                      &self.AfastamentoV_, &self.KgMetro_, &self.EixoX_,     &self.EixoY_,     &self.Area_};
  }
  HandMadeElevation::Edges edgesByHand() const;

  std::int16_t versao_ = kVersion;
  double Altura_ = 0.0;
  double Largura_ = 0.0;
  double Espessura_ = 0.0;
  double RaioDobra_ = 0.0;
  double AfastamentoH_ = 0.0;
  double AfastamentoV_ = 0.0;
  double KgMetro_ = 0.0;
  double EixoX_ = 0.0;
  double EixoY_ = 0.0;
  double Area_ = 0.0;
};
