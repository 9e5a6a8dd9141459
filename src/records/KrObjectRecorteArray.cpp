#include "records/KrObjectRecorteArray.h"

#include "host/db/db.h"
#include "records/KrObjectModCData.h"

namespace {

constexpr Adesk::Int32 kListVersion = 1;

Adesk::Int32 readInt32(AcDbDwgFiler* filer) {
  Adesk::Int32 value = 0;
  filer->readInt32(&value);
  return value;
}

bool isGood(AcDbDwgFiler* filer) {
  return filer->filerStatus() == Acad::eOk;
}

void readPolygon(AcDbDwgFiler* filer, AcArray<AcGePoint2d>& points, AcArray<double>& bulges) {
  const int pointCount = readInt32(filer);
  for (int i = 0; i < pointCount && isGood(filer); ++i) {
    AcGePoint2d point;
    filer->readPoint2d(&point);
    points.append(point);
  }
  const int bulgeCount = readInt32(filer);
  for (int i = 0; i < bulgeCount && isGood(filer); ++i) {
    double bulge = 0.0;
    filer->readDouble(&bulge);
    bulges.append(bulge);
  }
}

/// Takes the next group, which must be of that code; throws the code if it isn't.
resbuf takeGroup(AcDbDxfFiler* filer, int code) {
  resbuf item{};
  if (filer->readItem(&item) != Acad::eOk || item.restype != code) throw code;
  return item;
}

/// Group 90 is taken as 16-bit here.
int takeInt16Of90(AcDbDxfFiler* filer) {
  return static_cast<std::int16_t>(takeGroup(filer, AcDb::kDxfInt32).resval.rlong);
}

AcGePoint2d takePoint(AcDbDxfFiler* filer) {
  const resbuf item = takeGroup(filer, AcDb::kDxfXCoord);
  return AcGePoint2d(item.resval.rpoint[0], item.resval.rpoint[1]);
}

}  // namespace

Acad::ErrorStatus KrObjectRecorteArray::dwgOutFields(AcDbDwgFiler* filer) const {
  filer->writeInt32(kListVersion);
  ListFiling::writeCount(filer, length());
  for (const Node<KrObjectRecorte>* node = getNode(0); node != nullptr; node = nextNode(node)) {
    const KrObjectRecorte& notch = *node->value;
    filer->writePoint2d(notch.lado());
    filer->writeInt32(notch.points().length());
    for (const AcGePoint2d& point : notch.points()) filer->writePoint2d(point);
    filer->writeInt32(notch.bulges().length());
    for (const double bulge : notch.bulges()) filer->writeDouble(bulge);
    KrObjectModCData::auxDwgOutFields(filer, notch.accessCData());
  }
  return filer->filerStatus();
}

Acad::ErrorStatus KrObjectRecorteArray::dwgInFields(AcDbDwgFiler* filer) {
  Clear();
  const int version = readInt32(filer);
  if (version < 0) return filer->filerStatus();
  const int count = readInt32(filer);
  for (int i = 0; i < count; ++i) {
    KrObjectRecorte notch;
    AcGePoint2d lado;
    filer->readPoint2d(&lado);
    notch.setLado(lado);
    readPolygon(filer, notch.points(), notch.bulges());
    KrObjectModCData* data = nullptr;
    const Acad::ErrorStatus es = version > 0 ? KrObjectModCData::auxDwgInFields(filer, &data) : Acad::eOk;
    if (es != Acad::eOk || !isGood(filer)) {
      delete data;
      return es != Acad::eOk ? es : filer->filerStatus();
    }
    // Copying a notch leaves its data behind, so the list's own notch takes it over.
    expect(count);
    append(notch);
    last().adoptCData(data);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus KrObjectRecorteArray::dxfOutFields(AcDbDxfFiler* filer) const {
  filer->writeItem(AcDb::kDxfInt32, kListVersion);
  ListFiling::writeCount(filer, length());
  for (const Node<KrObjectRecorte>* node = getNode(0); node != nullptr; node = nextNode(node)) {
    const KrObjectRecorte& notch = *node->value;
    filer->writeItem(AcDb::kDxfXCoord, notch.lado());
    filer->writeItem(AcDb::kDxfInt32, static_cast<Adesk::Int32>(notch.points().length()));
    for (const AcGePoint2d& point : notch.points()) filer->writeItem(AcDb::kDxfXCoord, point);
    filer->writeItem(AcDb::kDxfInt32, static_cast<Adesk::Int32>(notch.bulges().length()));
    for (const double bulge : notch.bulges()) filer->writeItem(AcDb::kDxfReal, bulge);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus KrObjectRecorteArray::dxfInFields(AcDbDxfFiler* filer) {
  Clear();
  if (takeInt16Of90(filer) < 0) return filer->filerStatus();
  const int count = takeInt16Of90(filer);
  for (int i = 0; i < count; ++i) {
    KrObjectRecorte notch;
    notch.setLado(takePoint(filer));
    const int points = takeInt16Of90(filer);
    for (int k = 0; k < points; ++k) notch.points().append(takePoint(filer));
    const int bulges = takeInt16Of90(filer);
    for (int k = 0; k < bulges; ++k) notch.bulges().append(takeGroup(filer, AcDb::kDxfReal).resval.rreal);
    append(notch);
  }
  return filer->filerStatus();
}

void KrObjectRecorteArray::transformBy(const AcGeMatrix2d& matrix) {
  for (auto* node = getNode(0); node != nullptr; node = nextNode(node)) node->value->transformBy(matrix);
}

void KrObjectRecorteArray::translate(const AcGeVector2d& v) {
  for (auto* node = getNode(0); node != nullptr; node = nextNode(node)) node->value->translate(v);
}

void KrObjectRecorteArray::xOffSet(double d) {
  translate(AcGeVector2d(d, 0.0));
}

void KrObjectRecorteArray::inverteRecortes(double comprimento) {
  const AcGeLine2d middle(AcGePoint2d(comprimento / 2.0, 0.0), AcGeVector2d::kYAxis);
  for (auto* node = getNode(0); node != nullptr; node = nextNode(node)) node->value->inverteRecorte(middle);
}

void KrObjectRecorteArray::purgeCData(AcRxClass* classe) {
  for (auto* node = getNode(0); node != nullptr; node = nextNode(node)) node->value->purgeCData(classe);
}

void KrObjectRecorteArray::translate(const AcGeVector2d& v, const AcArray<int>& which) {
  for (int i = 0; i < length(); ++i) {
    if (which.contains(i)) (*this)[i].translate(v);
  }
}

void KrObjectRecorteArray::xOffSet(double d, const AcArray<int>& which) {
  translate(AcGeVector2d(d, 0.0), which);
}
