#pragma once

#include <array>
#include <cstdint>

#include "object/KrObject.h"
#include "profiles/HandMadeElevation.h"
#include "profiles/Parameter.h"

/// Two rolled equal angles on their corners, heel to heel, `Afastamento` apart. The start point lies under the toe of
/// the right one's lower leg; the bar's axis passes through the middle between the heels; millimetres.
class KrBNDuplaLaminada : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrBNDuplaLaminada);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrBNDuplaLaminada();
  /// A bar between two points.
  KrBNDuplaLaminada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Aba, double Espessura,
                    double Afastamento, double RaioDobra, double EixoX, double AngleSecao, double Area, double KgMetro);
  /// A bar from a point along an angle.
  KrBNDuplaLaminada(const AcGePoint3d& start, KrVistas vista, double Aba, double Espessura, double Afastamento,
                    double RaioDobra, double EixoX, double AngleSecao, double AngleVista, double Comprimento,
                    double Area, double KgMetro);
  /// A bar from a point along an angle, `EixoX` 0.
  KrBNDuplaLaminada(const AcGePoint3d& start, KrVistas vista, double Aba, double Espessura, double Afastamento,
                    double RaioDobra, double AngleSecao, double AngleVista, double Comprimento, double Area,
                    double KgMetro);
  /// Copies the bar and its parameters; with `completo` 1 also what is drawn, else it regenerates.
  KrBNDuplaLaminada(const KrBNDuplaLaminada* source, int completo);
  /// Copies the parameters and the turn of the section, and regenerates; nothing else of the bar.
  KrBNDuplaLaminada(const KrBNDuplaLaminada& source);
  KrBNDuplaLaminada& operator=(const KrBNDuplaLaminada&) = delete;

  /// Length of both legs.
  KR_VIRTUAL_PARAMETER(Aba)
  /// Thickness of the legs, and radius of their toes.
  KR_VIRTUAL_PARAMETER(Espessura)
  /// Fillet of the inner corner.
  KR_VIRTUAL_PARAMETER(RaioDobra)
  /// Kept and filed only.
  KR_VIRTUAL_PARAMETER(EixoX)
  /// Catalogue weight, kilograms per metre.
  KR_VIRTUAL_PARAMETER(KgMetro)
  /// Catalogue area, square millimetres.
  KR_VIRTUAL_PARAMETER(Area)
  /// Gap between the heels.
  KR_VIRTUAL_PARAMETER(Afastamento)

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
    return std::array{&self.Aba_,   &self.Espessura_,   &self.RaioDobra_, &self.KgMetro_,
                      &self.EixoX_, &self.Afastamento_, &self.Area_};
  }
  HandMadeElevation::Edges edgesByHand() const;

  std::int16_t versao_ = kVersion;
  double Aba_ = 0.0;
  double Espessura_ = 0.0;
  double RaioDobra_ = 0.0;
  double KgMetro_ = 0.0;
  double EixoX_ = 0.0;
  double Afastamento_ = 0.0;
  double Area_ = 0.0;
};
