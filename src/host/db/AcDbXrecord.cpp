#include "host/db/AcDbXrecord.h"

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbValueChain.h"
#include "host/db/MergeStyle.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, 0, 0, 0, XRECORD, krhost)

AcDbXrecord::~AcDbXrecord() {
  acutRelRb(chain_);
}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase*) const {
  assertReadEnabled();
  *chain = valuechain::copy(chain_);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase*) {
  constexpr int kMaxGroup = 999;
  if (!valuechain::codesWithin(&chain, 0, kMaxGroup)) return Acad::eInvalidResBuf;
  assertWriteEnabled();
  acutRelRb(chain_);
  chain_ = valuechain::copy(&chain);
  return Acad::eOk;
}

void AcDbXrecord::setChainAsRead(resbuf* chain) {
  acutRelRb(chain_);
  chain_ = chain;
}

AcDb::DuplicateRecordCloning AcDbXrecord::mergeStyle() const {
  assertReadEnabled();
  return mergeStyle_;
}

void AcDbXrecord::setMergeStyle(AcDb::DuplicateRecordCloning style) {
  assertWriteEnabled();
  mergeStyle_ = style;
}

Acad::ErrorStatus AcDbXrecord::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writeInt16(Adesk::Int16(mergeStyle_));
  return valuechain::write(*filer, chain_);
}

Acad::ErrorStatus AcDbXrecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dwgInFields(filer); es != Acad::eOk) return es;
  Adesk::Int16 style = 0;
  filer->readInt16(&style);
  mergeStyle_ = acdbMergeStyleOf(style);
  acutRelRb(chain_);
  return valuechain::read(*filer, chain_);
}

Acad::ErrorStatus AcDbXrecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbXrecord");
  filer->writeInt16(AcDb::kDxfInt8, Adesk::Int16(mergeStyle_));
  return valuechain::write(*filer, chain_);
}

Acad::ErrorStatus AcDbXrecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dxfInFields(filer); es != Acad::eOk) return es;
  if (!filer->atSubclassData(L"AcDbXrecord")) return filer->filerStatus();
  acutRelRb(chain_);
  chain_ = nullptr;
  resbuf** tail = &chain_;
  bool first = true;
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    if (std::exchange(first, false) && item.restype == AcDb::kDxfInt8) {
      mergeStyle_ = acdbMergeStyleOf(item.resval.rint);
      continue;
    }
    *tail = valuechain::copyLink(item);
    if (*tail == nullptr) break;
    tail = &(*tail)->rbnext;
  }
  return filer->filerStatus();
}
