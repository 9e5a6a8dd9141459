#include "records/KrFuro.h"

#include "host/db/db.h"
#include "records/KrObjectModCData.h"

namespace {

constexpr Adesk::Int16 kListVersion = 1;
constexpr Adesk::Int16 kNodeVersion = 1;
constexpr double kPi = 3.141592653589793;

void fileOut(AcDbDwgFiler* filer, const NoFuro& node) {
  filer->writeVector3d(node.Ini);
  filer->writeVector3d(node.Fim);
  filer->writeDouble(node.Diametro);
  filer->writeDouble(node.Stretch);
  filer->writeDouble(node.Angle);
  KrObjectModCData::auxDwgOutFields(filer, node.cdata);
}

Acad::ErrorStatus fileIn(AcDbDwgFiler* filer, NoFuro& node) {
  filer->readVector3d(&node.Ini);
  filer->readVector3d(&node.Fim);
  filer->readDouble(&node.Diametro);
  filer->readDouble(&node.Stretch);
  filer->readDouble(&node.Angle);
  return KrObjectModCData::auxDwgInFields(filer, &node.cdata);
}

}  // namespace

NoFuro::NoFuro(const NoFuro& other)
    : Ini(other.Ini),
      Fim(other.Fim),
      Diametro(other.Diametro),
      Stretch(other.Stretch),
      Angle(other.Angle),
      cdata(other.cdata) {}

NoFuro& NoFuro::operator=(const NoFuro& other) {
  if (this == &other) return *this;
  Ini = other.Ini;
  Fim = other.Fim;
  Diametro = other.Diametro;
  Stretch = other.Stretch;
  Angle = other.Angle;
  delete cdata;
  cdata = KrObjectModCData::cloneOf(other.cdata);
  return *this;
}

NoFuro::~NoFuro() {
  delete cdata;
}

KrFuro::KrFuro(const KrFuro& other) {
  *this = other;
}

KrFuro::~KrFuro() = default;

KrFuro& KrFuro::operator=(const KrFuro& other) {
  if (this == &other) return *this;
  Clear();
  chain_.reserve(other.chain_.size());
  for (const NoFuro* hole = other.chain_.first(); hole != nullptr; hole = hole->next) {
    Add(hole->Ini, hole->Fim, hole->Diametro, hole->Stretch, hole->Angle);
  }
  return *this;
}

NoFuro* KrFuro::newTail() {
  NoFuro* node = chain_.append();
  if (node != nullptr) ++qtd_;
  return node;
}

void KrFuro::Add(const AcGeVector3d& ini, const AcGeVector3d& fim, double diametro, double stretch, double angle) {
  NoFuro* node = newTail();
  if (node == nullptr) return;
  node->Ini = ini;
  node->Fim = fim;
  node->Diametro = diametro;
  node->Stretch = stretch;
  node->Angle = angle;
}

void KrFuro::Add(const NoFuro& node) {
  Add(node.Ini, node.Fim, node.Diametro, node.Stretch, node.Angle);
  chain_.last()->cdata = node.cdata;
}

void KrFuro::Add(const KrFuro& other) {
  if (chain_.empty()) {
    *this = other;
    return;
  }
  const int added = other.chain_.size();
  for (int i = 0; i < added; ++i) {
    if (NoFuro* node = newTail(); node != nullptr) *node = *other.chain_.at(i);
  }
}

void KrFuro::Clear() {
  purgeCData(nullptr);
  chain_.clear();
  qtd_ = 0;
}

NoFuro KrFuro::getNo(int i) const {
  const NoFuro& hole = *accessNode(i);
  NoFuro copy;
  copy.Ini = hole.Ini;
  copy.Fim = hole.Fim;
  copy.Diametro = hole.Diametro;
  copy.Stretch = hole.Stretch;
  copy.Angle = hole.Angle;
  return copy;
}

void KrFuro::setIni(int i, const AcGeVector3d& ini) {
  if (NoFuro* hole = accessNode(i); hole != nullptr) hole->Ini = ini;
}

void KrFuro::setFim(int i, const AcGeVector3d& fim) {
  if (NoFuro* hole = accessNode(i); hole != nullptr) hole->Fim = fim;
}

void KrFuro::setDiametro(int i, double diametro) {
  if (NoFuro* hole = accessNode(i); hole != nullptr) hole->Diametro = diametro;
}

void KrFuro::setStretch(int i, double stretch) {
  if (NoFuro* hole = accessNode(i); hole != nullptr) hole->Stretch = stretch;
}

void KrFuro::setAngle(int i, double angle) {
  if (NoFuro* hole = accessNode(i); hole != nullptr) hole->Angle = angle;
}

void KrFuro::setNode(int i, const NoFuro& node) {
  if (NoFuro* hole = accessNode(i); hole != nullptr) *hole = node;
}

int KrFuro::contain(const NoFuro& node) const {
  for (const NoFuro* hole = chain_.first(); hole != nullptr; hole = hole->next) {
    if (hole->Ini.isEqualTo(node.Ini) && hole->Fim.isEqualTo(node.Fim)) return 1;
  }
  return 0;
}

int KrFuro::removeAt(int i) {
  if (i < 0 || i >= chain_.size()) return 0;
  KrObjectModCData::purge(chain_.remove(i)->cdata, nullptr);
  --qtd_;
  return i == 0 ? 0 : 1;
}

void KrFuro::removeFirst() {
  if (!chain_.empty()) KrObjectModCData::purge(chain_.remove(0)->cdata, nullptr);
  --qtd_;
}

KrObjectModCData* KrFuro::accessCData(int i) const {
  const NoFuro* hole = isValidPos(i) ? accessNode(i) : nullptr;
  return hole != nullptr ? hole->cdata : nullptr;
}

int KrFuro::setCData(int i, const KrObjectModCData* data) {
  NoFuro* hole = isValidPos(i) ? accessNode(i) : nullptr;
  if (hole == nullptr) return 0;
  KrObjectModCData* fresh = KrObjectModCData::cloneOf(data);
  delete hole->cdata;
  hole->cdata = fresh;
  return 1;
}

void KrFuro::purgeCData(AcRxClass* classe) {
  for (NoFuro* hole = chain_.first(); hole != nullptr; hole = hole->next) {
    KrObjectModCData::purge(hole->cdata, classe);
  }
}

void KrFuro::moveFuros(double d) {
  for (NoFuro* hole = chain_.first(); hole != nullptr; hole = hole->next) {
    hole->Ini.z += d;
    hole->Fim.z += d;
  }
}

void KrFuro::translateFuros(const AcGeVector3d& v) {
  for (NoFuro* hole = chain_.first(); hole != nullptr; hole = hole->next) {
    hole->Ini += v;
    hole->Fim += v;
  }
}

void KrFuro::rotateFuros(double angle) {
  for (NoFuro* hole = chain_.first(); hole != nullptr; hole = hole->next) {
    hole->Ini.rotateBy(angle, AcGeVector3d::kZAxis);
    hole->Fim.rotateBy(angle, AcGeVector3d::kZAxis);
  }
}

void KrFuro::inverteFuros(double comprimento) {
  for (NoFuro* hole = chain_.first(); hole != nullptr; hole = hole->next) {
    hole->Ini.z = comprimento - hole->Ini.z;
    hole->Angle = kPi - hole->Angle;
  }
}

Acad::ErrorStatus KrFuro::dwgOutFields(AcDbDwgFiler* filer) const {
  filer->writeInt16(kListVersion);
  filer->writeInt16(kNodeVersion);
  filer->writeInt16(static_cast<Adesk::Int16>(qtd_));
  for (const NoFuro* hole = chain_.first(); hole != nullptr; hole = hole->next) fileOut(filer, *hole);
  return filer->filerStatus();
}

Acad::ErrorStatus KrFuro::dwgInFields(AcDbDwgFiler* filer) {
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
    NoFuro hole;
    if (nodeVersion != 0) {
      if (const Acad::ErrorStatus es = fileIn(filer, hole); es != Acad::eOk) return es;
    }
    if (filer->filerStatus() != Acad::eOk) break;
    Add(hole.Ini, hole.Fim, hole.Diametro, hole.Stretch, hole.Angle);
    setCData(chain_.size() - 1, hole.cdata);
  }
  return filer->filerStatus();
}
