#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/HandMadeElevation.h"
#include "profiles/Parameter.h"

/// How `KrILaminadoUSA::AutoCalc` derives a section from the mean thickness of its flanges. Filed by number.
enum ISolType : int {
  ISolParalelaArredondada = 0,  ///< parallel flanges, rounded toes
  ISolParalela = 1,             ///< parallel flanges, square toes
  ISolInclinada = 2             ///< tapered flanges
};

/// A rolled I. The start point is its lower left corner; the bar's axis passes through its middle; millimetres.
///
/// Parallel flanges as standards draw them: `Inclinacao` and `Raio1` 0, `RaioDobra` the root radius, `DeslocF` the
/// flange thickness and that radius. `AutoCalc` approximates them where only the mean flange thickness is known.
///
/// DXF files hold version 2, of which the reader wants nothing, and no `tipo`.
class KrILaminadoUSA : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrILaminadoUSA);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrILaminadoUSA();
  /// A bar between two points.
  KrILaminadoUSA(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura, double Largura,
                 double Espessura, double DeslocF, double Inclinacao, double RaioDobra, double Raio1, double EspMedia,
                 double AngleSecao, double Area, double KgMetro, ISolType tipo);
  /// The same with what `AutoCalc` derives.
  KrILaminadoUSA(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura, double Largura,
                 double Espessura, double EspMedia, ISolType tipo, double AngleSecao, double Area, double KgMetro);
  /// A bar from a point along an angle.
  KrILaminadoUSA(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura,
                 double DeslocF, double Inclinacao, double RaioDobra, double Raio1, double EspMedia, double AngleSecao,
                 double AngleVista, double Comprimento, double Area, double KgMetro, ISolType tipo);
  /// The same with what `AutoCalc` derives.
  KrILaminadoUSA(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura, double Espessura,
                 double EspMedia, ISolType tipo, double AngleSecao, double AngleVista, double Comprimento, double Area,
                 double KgMetro);
  /// Copies the bar and its parameters; with `completo` 1 also what is drawn, else it regenerates.
  KrILaminadoUSA(const KrILaminadoUSA* source, int completo);
  /// Copies the parameters and the turn of the section, and regenerates; nothing else of the bar.
  KrILaminadoUSA(const KrILaminadoUSA& source);
  KrILaminadoUSA& operator=(const KrILaminadoUSA&) = delete;

  /// Height of the section.
  KR_PARAMETER(Altura)
  /// Width of the section.
  KR_PARAMETER(Largura)
  /// Thickness of the web.
  KR_PARAMETER(Espessura)
  /// Mean thickness of the flanges: for display, no geometry uses it.
  KR_PARAMETER(EspMedia)
  /// From a flange's outer face to the end of the root fillet on the web.
  KR_PARAMETER(DeslocF)
  /// Slope of the inner faces of the flanges, radians.
  KR_PARAMETER(Inclinacao)
  /// Root fillet between web and flange.
  KR_PARAMETER(RaioDobra)
  /// Fillet of a flange's toe.
  KR_PARAMETER(Raio1)
  /// Catalogue weight, kilograms per metre.
  KR_PARAMETER(KgMetro)
  /// Catalogue area, square millimetres.
  KR_PARAMETER(Area)
  /// Which section `AutoCalc` derives.
  Acad::ErrorStatus tipo(ISolType& valor) const;
  Acad::ErrorStatus setTipo(ISolType valor);
  /// Derives slope, fillets and `DeslocF` from `EspMedia` and `tipo`; regenerates nothing. A `tipo` that is none of the
  /// three sets `Inclinacao` to 0 and `RaioDobra` to `EspMedia` and nothing else.
  void AutoCalc();

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

  /// The user's name of the bar if it has one, else as every class.
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
  static constexpr std::int16_t kVersion = 2;

  /// The parameters in the order of the file.
  template <class Self>
  static auto filed(Self& self) {
    return std::array{&self.Altura_, &self.Largura_, &self.Espessura_, &self.DeslocF_,    &self.RaioDobra_,
                      &self.Raio1_,  &self.KgMetro_, &self.Area_,      &self.Inclinacao_, &self.EspMedia_};
  }
  HandMadeElevation::Edges edgesByHand() const;

  std::int16_t versao_ = kVersion;
  double Altura_ = 0.0;
  double Largura_ = 0.0;
  double Espessura_ = 0.0;
  double EspMedia_ = 0.0;
  double DeslocF_ = 0.0;
  double Inclinacao_ = 0.0;
  double RaioDobra_ = 0.0;
  double Raio1_ = 0.0;
  double KgMetro_ = 0.0;
  double Area_ = 0.0;
  ISolType tipo_ = ISolParalelaArredondada;
};
