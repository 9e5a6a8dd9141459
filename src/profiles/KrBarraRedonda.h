#pragma once

#include <cstdint>

#include "object/KrObject.h"

/// A solid round bar. Its section is centred on the bar's axis; millimetres.
///
/// A setter stores and regenerates nothing: `Calcule` does. A round bar has no DXF form: it comes back from DXF empty.
class KrBarraRedonda : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrBarraRedonda);

  /// Nothing drawn, no diameter: to be filled from a file.
  KrBarraRedonda();
  /// A bar between two points.
  KrBarraRedonda(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double diametro);
  /// A bar from a point along an angle. The length stands before the angle here.
  KrBarraRedonda(const AcGePoint3d& start, KrVistas vista, double diametro, double Comprimento, double AngleVista);
  /// Copies nothing: an empty object. Copy through the base's copying instead.
  KrBarraRedonda(const KrBarraRedonda& other);
  explicit KrBarraRedonda(const KrBarraRedonda* other);
  KrBarraRedonda& operator=(const KrBarraRedonda&) = delete;

  Acad::ErrorStatus diametro(double& valor) const;
  Acad::ErrorStatus setdiametro(double valor);

  /// Writes the outline anew and regenerates the current view.
  void Calcule();

  void getPerfil(ACHAR* buffer) const override;
  /// The sign of a diameter, and the diameter.
  void getDimensoes(ACHAR* buffer) const override;
  double getArea() const override;
  double getPerimetro() const override;
  double getAltura() override;
  double getEspessura() override;
  double getLargura() override;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  /// Reads and writes nothing. The filer's status.
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  /// In the section view a circle; else as the base does.
  Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
  void subList() const override;

 private:
  static constexpr std::int16_t kVersion = 1;

  std::int16_t versao_ = kVersion;
  double diametro_ = 0.0;
};
