#include "host/db/AcDbDimStyleTable.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/dbtext.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, DIMSTYLE, krhost)

namespace {

#define KR_DB_DIM_CODE(get, set, value, code) code,
constexpr int kRealCodes[] = {KR_DB_DIM_REALS(KR_DB_DIM_CODE)};
constexpr int kIntCodes[] = {KR_DB_DIM_INTS(KR_DB_DIM_CODE)};
#undef KR_DB_DIM_CODE

}  // namespace

Acad::ErrorStatus AcDbDimStyleTableRecord::setReal(RealIndex i, double value) {
  assertWriteEnabled();
  reals_[i] = value;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setWhole(IntIndex i, int value) {
  assertWriteEnabled();
  ints_[i] = Adesk::Int16(value);
  return Acad::eOk;
}

AcDbObjectId AcDbDimStyleTableRecord::dimtxsty() const {
  assertReadEnabled();
  return dimtxsty_;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setDimtxsty(AcDbObjectId id) {
  assertWriteEnabled();
  dimtxsty_ = id;
  return Acad::eOk;
}

AcDbObjectId AcDbDimStyleTableRecord::dimblk() const {
  assertReadEnabled();
  return dimblk_;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setDimblk(AcDbObjectId id) {
  assertWriteEnabled();
  dimblk_ = id;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dimpost(ACHAR*& text) const {
  assertReadEnabled();
  text = dbtext::newText(dimpost_);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setDimpost(const ACHAR* text) {
  assertWriteEnabled();
  dimpost_ = dbtext::orEmpty(text);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(filer); es != Acad::eOk) return es;
  for (const double value : reals_) filer->writeDouble(value);
  for (const Adesk::Int16 value : ints_) filer->writeInt16(value);
  filer->writeHardPointerId(dimtxsty_);
  filer->writeHardPointerId(dimblk_);
  return filer->writeString(dimpost_.c_str());
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(filer); es != Acad::eOk) return es;
  for (double& value : reals_) filer->readDouble(&value);
  for (Adesk::Int16& value : ints_) filer->readInt16(&value);
  filer->readHardPointerId(&dimtxsty_);
  filer->readHardPointerId(&dimblk_);
  dimpost_ = dbtext::readText(*filer);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeString(AcDb::kDxfDimStyleName, dimpost_.c_str());
  for (std::size_t i = 0; i < reals_.size(); ++i) filer->writeDouble(AcDb::DxfCode(kRealCodes[i]), reals_[i]);
  for (std::size_t i = 0; i < ints_.size(); ++i) filer->writeInt16(AcDb::DxfCode(kIntCodes[i]), ints_[i]);
  return filer->writeObjectId(AcDb::kDxfHardPointerId, dimtxsty_);
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    if (item.restype == AcDb::kDxfDimStyleName) dimpost_ = item.resval.rstring;
    if (item.restype == AcDb::kDxfHardPointerId) dimtxsty_ = AcDbObjectId().setFromOldId(item.resval.rlname[0]);
    for (std::size_t i = 0; i < reals_.size(); ++i) {
      if (kRealCodes[i] == item.restype) reals_[i] = item.resval.rreal;
    }
    for (std::size_t i = 0; i < ints_.size(); ++i) {
      if (kIntCodes[i] == item.restype) ints_[i] = item.resval.rint;
    }
  }
  return filer->filerStatus();
}
