#include "records/KrObjectRecorte.h"

#include <cmath>

#include "records/KrObjectModCData.h"

KrObjectRecorte::KrObjectRecorte(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges,
                                 const AcGePoint2d& lado)
    : lado_(lado) {
  points_.append(points);
  bulges_.append(bulges);
}

KrObjectRecorte::KrObjectRecorte(const KrObjectRecorte& other)
    : KrObjectRecorte(other.points_, other.bulges_, other.lado_) {}

KrObjectRecorte& KrObjectRecorte::operator=(const KrObjectRecorte& other) {
  if (this == &other) return *this;
  lado_ = other.lado_;
  points_ = other.points_;
  bulges_ = other.bulges_;
  return *this;
}

KrObjectRecorte::~KrObjectRecorte() {
  delete cdata_;
}

Acad::ErrorStatus KrObjectRecorte::dwgOutFields(AcDbDwgFiler*) const {
  return Acad::eOk;
}

Acad::ErrorStatus KrObjectRecorte::dwgInFields(AcDbDwgFiler*) {
  return Acad::eOk;
}

Acad::ErrorStatus KrObjectRecorte::dxfOutFields(AcDbDxfFiler*) const {
  return Acad::eOk;
}

Acad::ErrorStatus KrObjectRecorte::dxfInFields(AcDbDxfFiler*) {
  return Acad::eOk;
}

int KrObjectRecorte::operator==(const KrObjectRecorte& other) const {
  if (points_.length() != other.points_.length() || bulges_.length() != other.bulges_.length()) return 0;
  for (int i = 0; i < points_.length(); ++i) {
    if (!points_[i].isEqualTo(other.points_[i])) return 0;
  }
  for (int i = 0; i < bulges_.length(); ++i) {
    if (std::abs(bulges_[i] - other.bulges_[i]) > AcGeContext::gTol.equalPoint()) return 0;
  }
  return 1;
}

void KrObjectRecorte::setCData(const KrObjectModCData* data) {
  adoptCData(static_cast<KrObjectModCData*>(data->clone()));
}

void KrObjectRecorte::adoptCData(KrObjectModCData* data) {
  delete cdata_;
  cdata_ = data;
}

void KrObjectRecorte::purgeCData(AcRxClass* classe) {
  KrObjectModCData::purge(cdata_, classe);
}

Acad::ErrorStatus KrObjectRecorte::transformBy(const AcGeMatrix2d& matrix) {
  if (matrix.det() < 0.0) turnBulges();
  for (AcGePoint2d& point : points_) point.transformBy(matrix);
  lado_.transformBy(matrix);
  return Acad::eOk;
}

KrObjectRecorte& KrObjectRecorte::translate(const AcGeVector2d& v) {
  for (AcGePoint2d& point : points_) point += v;
  lado_ += v;
  return *this;
}

KrObjectRecorte& KrObjectRecorte::xOffSet(double d) {
  return translate(AcGeVector2d(d, 0.0));
}

KrObjectRecorte& KrObjectRecorte::inverteRecorte(const AcGeLine2d& line) {
  turnBulges();
  for (AcGePoint2d& point : points_) point.mirror(line);
  lado_.mirror(line);
  return *this;
}

KrObjectRecorte& KrObjectRecorte::inverteRecorte(double comprimento) {
  return inverteRecorte(AcGeLine2d(AcGePoint2d(comprimento / 2.0, 0.0), AcGeVector2d::kYAxis));
}

KrObjectRecorte& KrObjectRecorte::inverteRecorte(void* line) {
  return inverteRecorte(*static_cast<const AcGeLine2d*>(line));
}

void KrObjectRecorte::turnBulges() {
  for (double& bulge : bulges_) bulge = -bulge;
}
