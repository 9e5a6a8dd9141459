#pragma once

#include <cstdint>

#include "object/KrObject.h"

/// A round tube. Its section is centred on the bar's axis; millimetres.
///
/// Setters store and regenerate nothing: `Calcule` does.
class KrTubo : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrTubo);

  /// Nothing drawn, all parameters 0: to be filled from a file.
  KrTubo();
  /// A bar between two points.
  KrTubo(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Diametro, double DiametroInt);
  /// A bar from a point along an angle.
  KrTubo(const AcGePoint3d& start, KrVistas vista, double Diametro, double DiametroInt, double AngleVista,
         double Comprimento);
  /// Copies the turn of the section and what is drawn, not the diameters: the copy can draw but not regenerate. Copy
  /// through the base's copying instead.
  KrTubo(const KrTubo& other);
  explicit KrTubo(const KrTubo* other);
  KrTubo& operator=(const KrTubo&) = delete;

  /// Outer diameter.
  virtual Acad::ErrorStatus Diametro(double& valor) const;
  virtual Acad::ErrorStatus setDiametro(double valor);
  /// Inner diameter; 0 or less makes a solid bar.
  virtual Acad::ErrorStatus DiametroInt(double& valor) const;
  virtual Acad::ErrorStatus setDiametroInt(double valor);
  /// Area of the section as the constructor worked it out, square millimetres. `getArea` follows the diameters.
  virtual Acad::ErrorStatus Area(double& valor) const;
  virtual Acad::ErrorStatus setArea(double valor);
  /// In spite of its name the weight of the whole bar at the constructor's length, in kg. Only listed, never used.
  virtual Acad::ErrorStatus KgMetro(double& valor) const;
  virtual Acad::ErrorStatus setKgMetro(double valor);

  /// Writes the outline anew and regenerates the current view.
  void Calcule();
  /// Writes the outline behind what it holds: outer circle, inner circle if there is one, origin. Clears the section's
  /// drawn elements.
  void CalculeSecao();
  /// Fill the drawn elements of one elevation by hand: the axis, the outer and the hidden inner lines, the two ends.
  void CalculeDireita();
  void CalculeEsquerda();
  void CalculeInferior();
  void CalculeSuperior();

  void getPerfil(ACHAR* buffer) const override;
  /// Outer diameter and twice the wall's thickness.
  void getDimensoes(ACHAR* buffer) const override;
  double getArea() const override;
  /// Of the outer circle only.
  double getPerimetro() const override;
  double getAltura() override;
  /// The wall's thickness.
  double getEspessura() override;
  double getLargura() override;
  /// One strip: the wall's thickness and the length of the middle circle.
  AcArray<double> GeratrizLength() override;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  /// In the section view two circles, the inner one also when its diameter is 0; else as the base does.
  Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
  void subList() const override;

 private:
  static constexpr std::int16_t kVersion = 1;

  void measure();
  Acad::ErrorStatus read(double field, double& valor) const;
  Acad::ErrorStatus store(double& field, double valor);
  void fillElevation(KrVistas vista);

  std::int16_t versao_ = kVersion;
  double Diametro_ = 0.0;
  double DiametroInt_ = 0.0;
  double Area_ = 0.0;
  double KgMetro_ = 0.0;
};
