#pragma once

#include "host/ge/ge.h"
#include "host/rx/rx.h"

class AcDbDwgFiler;
class AcDbDxfFiler;
class KrObjectModCData;

/// One notch of a member: a closed polygon with bulges in the plane of one view, and a point on the side that goes. In
/// the member's own coordinates, in real size. A bulge is the tangent of a quarter of the arc's angle.
class KrObjectRecorte {
 public:
  KrObjectRecorte() = default;
  KrObjectRecorte(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges, const AcGePoint2d& lado);
  /// Copies polygon and side; a new notch has no modification data, an assigned one keeps its own.
  KrObjectRecorte(const KrObjectRecorte& other);
  KrObjectRecorte& operator=(const KrObjectRecorte& other);
  virtual ~KrObjectRecorte();

  /// A notch files nothing by itself: its list does. Always `Acad::eOk`.
  virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
  virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);
  virtual Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const;
  virtual Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer);

  /// The point that marks the side of the polygon.
  const AcGePoint2d& lado() const { return lado_; }
  void setLado(const AcGePoint2d& lado) { lado_ = lado; }
  const AcArray<AcGePoint2d>& points() const { return points_; }
  AcArray<AcGePoint2d>& points() { return points_; }
  const AcArray<double>& bulges() const { return bulges_; }
  AcArray<double>& bulges() { return bulges_; }

  /// 1 if the polygons have the same points and bulges within the global tolerance, else 0. Side and data don't count.
  int operator==(const KrObjectRecorte& other) const;

  /// The modification data, owned by the notch; null for none.
  KrObjectModCData* accessCData() const { return cdata_; }
  /// Replaces the data by a clone of `data`, which must not be null.
  void setCData(const KrObjectModCData* data);
  /// Replaces the data by `data` itself, which the notch owns from now on; null for none.
  void adoptCData(KrObjectModCData* data);
  /// Deletes the data if `classe` is null or the data is of a kind of it. With a class there must be data.
  void purgeCData(AcRxClass* classe);

  /// Transforms polygon and side; a reflection turns the bulges round. `Acad::eOk`.
  Acad::ErrorStatus transformBy(const AcGeMatrix2d& matrix);
  /// Moves polygon and side.
  KrObjectRecorte& translate(const AcGeVector2d& v);
  KrObjectRecorte& xOffSet(double d);
  /// Mirrors the notch in a line.
  KrObjectRecorte& inverteRecorte(const AcGeLine2d& line);
  /// Mirrors the notch in the line through (comprimento / 2, 0) along Y.
  KrObjectRecorte& inverteRecorte(double comprimento);
  /// Mirrors the notch in the `AcGeLine2d` that `line` points at.
  KrObjectRecorte& inverteRecorte(void* line);

 private:
  static constexpr int kGrowLength = 8;

  void turnBulges();

  AcGePoint2d lado_;
  AcArray<AcGePoint2d> points_{0, kGrowLength};
  AcArray<double> bulges_{0, kGrowLength};
  KrObjectModCData* cdata_ = nullptr;
};
