#include "records/KrObjectSplitList.h"

#include "host/db/db.h"

namespace {

constexpr Adesk::Int16 kListVersion = 1;
constexpr int kDxfVersionCode = AcDb::kDxfInt16;

/// A count of splits that take no room in the file says nothing of its own truth: it is held to what a list of holes or
/// cuts could have.
constexpr int kMostUnfiledSplits = 65535;

int believable(int count) {
  return count < kMostUnfiledSplits ? count : kMostUnfiledSplits;
}

}  // namespace

Acad::ErrorStatus KrObjectSplitList::dwgOutFields(AcDbDwgFiler* filer) const {
  filer->writeInt16(kListVersion);
  KrObjectArray::dwgOutFields(filer);
  return filer->filerStatus();
}

Acad::ErrorStatus KrObjectSplitList::dwgInFields(AcDbDwgFiler* filer) {
  Adesk::Int16 version = 0;
  filer->readInt16(&version);
  if (version > kListVersion) return Acad::eMakeMeProxy;
  Clear();
  const int count = version > 0 ? ListFiling::readCount(filer) : believable(ListFiling::readCount(filer));
  for (int i = 0; i < count; ++i) {
    KrObjectSplit split;
    split.dwgInFields(filer, version);
    if (filer->filerStatus() != Acad::eOk) break;
    append(split);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus KrObjectSplitList::dxfOutFields(AcDbDxfFiler* filer) const {
  filer->writeItem(AcDb::kDxfInt16, kListVersion);
  return KrObjectArray::dxfOutFields(filer);
}

Acad::ErrorStatus KrObjectSplitList::dxfInFields(AcDbDxfFiler* filer) {
  resbuf item{};
  if (const Acad::ErrorStatus es = filer->readItem(&item); es != Acad::eOk) return es;
  if (item.restype != kDxfVersionCode) {
    filer->pushBackItem();
    return Acad::eInvalidResBuf;
  }
  Clear();
  int count = 0;
  if (const Acad::ErrorStatus es = ListFiling::readCount(filer, count); es != Acad::eOk) return es;
  count = believable(count);
  for (int i = 0; i < count; ++i) append(KrObjectSplit());
  return filer->filerStatus();
}

void KrObjectSplitList::zOffset(double d) {
  for (auto* node = getNode(0); node != nullptr; node = nextNode(node)) node->value->zOffset(d);
}

void KrObjectSplitList::purgeCData(AcRxClass* classe) {
  for (auto* node = getNode(0); node != nullptr; node = nextNode(node)) node->value->purgeCData(classe);
}
