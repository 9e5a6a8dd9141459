#include "records/KrPlanoCorte.h"

#include "host/db/db.h"
#include "records/KrObjectModCData.h"

namespace {

constexpr Adesk::Int16 kListVersion = 1;
constexpr Adesk::Int16 kNodeVersion = 1;

void fileOut(AcDbDwgFiler* filer, const NoPlano& node) {
  double a = 0.0;
  double b = 0.0;
  double c = 0.0;
  double d = 0.0;
  node.plane.getCoefficients(a, b, c, d);
  filer->writeDouble(a);
  filer->writeDouble(b);
  filer->writeDouble(c);
  filer->writeDouble(d);
  filer->writePoint3d(node.side);
  KrObjectModCData::auxDwgOutFields(filer, node.cdata);
}

Acad::ErrorStatus fileIn(AcDbDwgFiler* filer, NoPlano& node) {
  double a = 0.0;
  double b = 0.0;
  double c = 0.0;
  double d = 0.0;
  filer->readDouble(&a);
  filer->readDouble(&b);
  filer->readDouble(&c);
  filer->readDouble(&d);
  node.plane.set(a, b, c, d);
  filer->readPoint3d(&node.side);
  return KrObjectModCData::auxDwgInFields(filer, &node.cdata);
}

AcGeMatrix3d alongBar(double d) {
  return AcGeMatrix3d::translation(AcGeVector3d(0.0, 0.0, -d));
}

}  // namespace

NoPlano::NoPlano(const NoPlano& other) : plane(other.plane), side(other.side), cdata(other.cdata) {}

NoPlano& NoPlano::operator=(const NoPlano& other) {
  if (this == &other) return *this;
  plane = other.plane;
  side = other.side;
  delete cdata;
  cdata = KrObjectModCData::cloneOf(other.cdata);
  return *this;
}

NoPlano::~NoPlano() {
  delete cdata;
}

Acad::ErrorStatus NoPlano::transformBy(const AcGeMatrix3d& matrix) {
  plane.transformBy(matrix);
  side.transformBy(matrix);
  return Acad::eOk;
}

KrPlanoCorte::KrPlanoCorte(const KrPlanoCorte& other) {
  *this = other;
}

KrPlanoCorte::~KrPlanoCorte() = default;

KrPlanoCorte& KrPlanoCorte::operator=(const KrPlanoCorte& other) {
  if (this == &other) return *this;
  Clear();
  chain_.reserve(other.chain_.size());
  for (const NoPlano* cut = other.chain_.first(); cut != nullptr; cut = cut->next) Add(cut->plane, cut->side);
  return *this;
}

void KrPlanoCorte::Add(const AcGePlane& plane, const AcGePoint3d& side) {
  NoPlano* node = chain_.append();
  if (node == nullptr) return;
  node->plane = plane;
  node->side = side;
}

void KrPlanoCorte::Add(const NoPlano& node) {
  if (NoPlano* added = chain_.append(); added != nullptr) *added = node;
}

void KrPlanoCorte::Clear() {
  purgeCData(nullptr);
  chain_.clear();
}

void KrPlanoCorte::removeFirst() {
  KrObjectModCData::purge(chain_.remove(0)->cdata, nullptr);
}

void KrPlanoCorte::removeAt(int i) {
  if (i < 0 || i >= chain_.size()) return;
  KrObjectModCData::purge(chain_.remove(i)->cdata, nullptr);
}

void KrPlanoCorte::Troca(const AcGePlane& plane, const AcGePoint3d& side, int i) {
  NoPlano& cut = GetNo(i);
  cut.plane = plane;
  cut.side = side;
}

KrObjectModCData* KrPlanoCorte::accessCData(int i) const {
  const NoPlano* cut = isValidPos(i) ? accessNode(i) : nullptr;
  return cut != nullptr ? cut->cdata : nullptr;
}

int KrPlanoCorte::setCData(int i, const KrObjectModCData* data) {
  NoPlano* cut = isValidPos(i) ? accessNode(i) : nullptr;
  if (cut == nullptr) return 0;
  KrObjectModCData* fresh = KrObjectModCData::cloneOf(data);
  delete cut->cdata;
  cut->cdata = fresh;
  return 1;
}

void KrPlanoCorte::purgeCData(AcRxClass* classe) {
  for (NoPlano* cut = chain_.first(); cut != nullptr; cut = cut->next) KrObjectModCData::purge(cut->cdata, classe);
}

Acad::ErrorStatus KrPlanoCorte::transformBy(const AcGeMatrix3d& matrix) {
  for (NoPlano* cut = chain_.first(); cut != nullptr; cut = cut->next) cut->transformBy(matrix);
  return Acad::eOk;
}

void KrPlanoCorte::movePlanes(double d) {
  transformBy(alongBar(d));
}

void KrPlanoCorte::movePlanes(const AcArray<int>& which, double d) {
  const AcGeMatrix3d move = alongBar(d);
  for (int i = 0; i < chain_.size(); ++i) {
    if (which.contains(i)) chain_.at(i)->transformBy(move);
  }
}

void KrPlanoCorte::movePlane(int i, double d) {
  if (i == 0 || chain_.empty()) return;
  chain_.first()->transformBy(alongBar(d));
}

void KrPlanoCorte::invertePlanos(double comprimento) {
  const AcGePlane middle(AcGePoint3d(0.0, 0.0, -comprimento / 2.0), AcGeVector3d::kZAxis);
  transformBy(AcGeMatrix3d::mirroring(middle));
}

Acad::ErrorStatus KrPlanoCorte::dwgOutFields(AcDbDwgFiler* filer) const {
  filer->writeInt16(kListVersion);
  filer->writeInt16(kNodeVersion);
  filer->writeInt16(static_cast<Adesk::Int16>(Qtd()));
  for (const NoPlano* cut = chain_.first(); cut != nullptr; cut = cut->next) fileOut(filer, *cut);
  return filer->filerStatus();
}

Acad::ErrorStatus KrPlanoCorte::dwgInFields(AcDbDwgFiler* filer) {
  Adesk::Int16 listVersion = 0;
  filer->readInt16(&listVersion);
  if (listVersion > kListVersion) return Acad::eMakeMeProxy;
  if (listVersion == 0) return Acad::eOk;
  Adesk::Int16 nodeVersion = 0;
  filer->readInt16(&nodeVersion);
  if (nodeVersion > kNodeVersion) return Acad::eMakeMeProxy;
  Clear();
  Adesk::Int16 filed = 0;
  filer->readInt16(&filed);
  const int count = static_cast<Adesk::UInt16>(filed);
  for (int i = 0; i < count; ++i) {
    NoPlano cut;
    if (nodeVersion != 0) {
      if (const Acad::ErrorStatus es = fileIn(filer, cut); es != Acad::eOk) return es;
    }
    if (filer->filerStatus() != Acad::eOk) break;
    Add(cut);
  }
  return filer->filerStatus();
}
