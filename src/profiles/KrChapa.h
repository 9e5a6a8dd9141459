#pragma once

#include <cstdint>
#include <memory>

#include "object/KrObject.h"

/// A flat plate: a bar along the plate's length whose section is a line of `largura`, thickened by `espessura`;
/// millimetres.
///
/// The middle line runs from (0, 0) to (0, largura). Its origin is its first corner and not its middle, and the
/// origin's node has the negative code, so that the axis of an elevation is hidden. Volume, weight and the surface for
/// painting are those of the rectangle; the area is that of the outline drawn, with its notches.
class KrChapa : public KrObject {
 public:
  ACRX_DECLARE_MEMBERS(KrChapa);

  /// What a plate is made for. Stored, filed and never tested here: the values mean something to clients only.
  enum CHAPA_SPECIFICATION : std::int32_t { kChapaComum = 0 };

  /// Nothing drawn, all parameters 0.
  KrChapa();
  /// A plate from a point along an angle. Without a width it is a square bar of `espessura`.
  KrChapa(const AcGePoint3d& start, KrVistas vista, double largura, double espessura, double Comprimento,
          double AngleSecao, double AngleVista);
  /// Copies the placement and the parameters, no holes, cuts or links, and shares the middle line with the source; with
  /// `copyVectors` 1 copies also what is drawn, else it regenerates.
  KrChapa(const KrChapa& source, int copyVectors);
  /// Copies the base, the parameters and the middle line; with `copyVectors` 1 also what is drawn, else it regenerates.
  KrChapa(const KrChapa* source, int copyVectors);
  KrChapa(const KrChapa&) = delete;
  KrChapa& operator=(const KrChapa&) = delete;

  /// Forms the plate anew, also one made empty: it runs along X whatever `AngleVista` says, which stays.
  void Create(const AcGePoint3d& start, double espessura, double Comprimento, double largura, KrVistas vista);
  /// Writes the middle line.
  void Define_geratriz(KrGeratriz& g) const;

  /// Thickness.
  Acad::ErrorStatus espessura(double& valor) const;
  double espessura() const;
  /// Regenerates at the new thickness. Holes keep their places; the axis of one that isn't square to the bar grows with
  /// the plate.
  Acad::ErrorStatus setespessura(double valor);
  /// Width across the bar.
  double largura() const;
  /// Stores, and regenerates nothing.
  Acad::ErrorStatus setlargura(double valor);
  CHAPA_SPECIFICATION getType() const;
  Acad::ErrorStatus setType(CHAPA_SPECIFICATION tipo);

  using KrObject::Corte;
  Acad::ErrorStatus Corte(KrObjectArray<KrVector>& elementos, AcGePoint3d& lado) override;
  /// The base's cut with the two numbers shifted by one place, so that the axis line of a plate is never trimmed. That
  /// is meant.
  Acad::ErrorStatus Corte(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, int reservado, int cortaEixo) override;

  void getPerfil(ACHAR* buffer) const override;
  /// Thickness and width.
  void getDimensoes(ACHAR* buffer) const override;
  /// Of the volume: cuts don't count. Kilograms.
  double getPeso() const override;
  /// Of the outline that the view shows, with its notches; an arc counts as its chord.
  double getArea() const override;
  /// Both faces and the four edges of the rectangle, square metres.
  double getAreaPintura() const override;
  /// The width. `getLargura` is 0.
  double getAltura() override;
  double getEspessura() override;
  /// The thickness and the width.
  AcArray<double> GeratrizLength() override;
  /// Of the rectangle, cubic millimetres.
  virtual double getVolume() const;

  /// Read at any version of the class. A plate has no DXF fields of its own.
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;

 protected:
  void subList() const override;

 private:
  static constexpr std::int16_t kVersion = 2;

  void generate();
  double comprimento() const;

  double espessura_ = 0.0;
  double largura_ = 0.0;
  std::shared_ptr<KrGeratriz> linhaMedia_;
  std::int32_t versao_ = kVersion;
  CHAPA_SPECIFICATION tipo_ = kChapaComum;
};
