#include "records/KrObjectSplit.h"

#include "host/db/db.h"
#include "records/KrObjectModCData.h"

KrObjectSplit::KrObjectSplit(const KrObjectSplit& other)
    : zPos_(other.zPos_), length_(other.length_), cdata_(KrObjectModCData::cloneOf(other.cdata_)) {}

KrObjectSplit& KrObjectSplit::operator=(const KrObjectSplit& other) {
  if (this == &other) return *this;
  zPos_ = other.zPos_;
  length_ = other.length_;
  // A shared pointer would be deleted by both splits: each has its own copy.
  delete cdata_;
  cdata_ = KrObjectModCData::cloneOf(other.cdata_);
  return *this;
}

KrObjectSplit::~KrObjectSplit() {
  delete cdata_;
}

void KrObjectSplit::setCData(const KrObjectModCData* data) {
  auto* fresh = static_cast<KrObjectModCData*>(data->clone());
  delete cdata_;
  cdata_ = fresh;
}

void KrObjectSplit::purgeCData(AcRxClass* classe) {
  KrObjectModCData::purge(cdata_, classe);
}

Acad::ErrorStatus KrObjectSplit::dwgOutFields(AcDbDwgFiler* filer) const {
  filer->writeDouble(zPos_);
  filer->writeDouble(length_);
  return KrObjectModCData::auxDwgOutFields(filer, cdata_);
}

Acad::ErrorStatus KrObjectSplit::dwgInFields(AcDbDwgFiler* filer, int version) {
  if (version < 1) return Acad::eOk;
  filer->readDouble(&zPos_);
  filer->readDouble(&length_);
  return KrObjectModCData::auxDwgInFields(filer, &cdata_);
}

Acad::ErrorStatus KrObjectSplit::dxfOutFields(AcDbDxfFiler*) const {
  return Acad::eOk;
}

Acad::ErrorStatus KrObjectSplit::dxfInFields(AcDbDxfFiler*) {
  return Acad::eOk;
}
