#include "host/db/AcDbDimStyleTable.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/FieldFiling.h"

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

#define KR_DB_DIM_ID(get, set)                                      \
  AcDbObjectId AcDbDimStyleTableRecord::get() const {               \
    assertReadEnabled();                                            \
    return data_.get;                                               \
  }                                                                 \
  Acad::ErrorStatus AcDbDimStyleTableRecord::set(AcDbObjectId id) { \
    assertWriteEnabled();                                           \
    data_.get = id;                                                 \
    return Acad::eOk;                                               \
  }
KR_DB_DIM_ID(dimtxsty, setDimtxsty)
KR_DB_DIM_ID(dimldrblk, setDimldrblk)
KR_DB_DIM_ID(dimblk, setDimblk)
KR_DB_DIM_ID(dimblk1, setDimblk1)
KR_DB_DIM_ID(dimblk2, setDimblk2)
#undef KR_DB_DIM_ID

#define KR_DB_DIM_TEXT(get, set)                                       \
  Acad::ErrorStatus AcDbDimStyleTableRecord::get(ACHAR*& text) const { \
    assertReadEnabled();                                               \
    text = dbtext::newText(data_.get);                                 \
    return Acad::eOk;                                                  \
  }                                                                    \
  Acad::ErrorStatus AcDbDimStyleTableRecord::set(const ACHAR* text) {  \
    assertWriteEnabled();                                              \
    data_.get = dbtext::orEmpty(text);                                 \
    return Acad::eOk;                                                  \
  }
KR_DB_DIM_TEXT(dimpost, setDimpost)
KR_DB_DIM_TEXT(dimapost, setDimapost)
#undef KR_DB_DIM_TEXT

Acad::ErrorStatus AcDbDimStyleTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(filer); es != Acad::eOk) return es;
  for (const double value : reals_) filer->writeDouble(value);
  for (const Adesk::Int16 value : ints_) filer->writeInt16(value);
  return fields::write(filer, data_);
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(filer); es != Acad::eOk) return es;
  for (double& value : reals_) filer->readDouble(&value);
  for (Adesk::Int16& value : ints_) filer->readInt16(&value);
  return fields::read(filer, data_);
}

namespace {

/// The references by their group codes.
struct Reference {
  int code;
  AcDbHardPointerId AcDbDimStyleTableRecord::Data::*field;
};
using Data = AcDbDimStyleTableRecord::Data;
constexpr Reference kReferences[] = {{340, &Data::dimtxsty},
                                     {341, &Data::dimldrblk},
                                     {342, &Data::dimblk},
                                     {343, &Data::dimblk1},
                                     {344, &Data::dimblk2}};
constexpr AcDb::DxfCode kDimapost = AcDb::DxfCode(4);

}  // namespace

Adesk::Int16 AcDbDimStyleTableRecord::dxfFlags() const {
  return data_.dxfFlags;
}

void AcDbDimStyleTableRecord::setDxfFlags(Adesk::Int16 flags) {
  data_.dxfFlags = flags;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  if (!data_.dimpost.empty()) filer->writeString(AcDb::kDxfDimStyleName, data_.dimpost.c_str());
  if (!data_.dimapost.empty()) filer->writeString(kDimapost, data_.dimapost.c_str());
  for (std::size_t i = 0; i < reals_.size(); ++i) filer->writeDouble(AcDb::DxfCode(kRealCodes[i]), reals_[i]);
  for (std::size_t i = 0; i < ints_.size(); ++i) filer->writeInt16(AcDb::DxfCode(kIntCodes[i]), ints_[i]);
  for (const Reference& each : kReferences) {
    if (!(data_.*each.field).isNull()) filer->writeObjectId(AcDb::DxfCode(each.code), data_.*each.field);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbDimStyleTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    if (item.restype == AcDb::kDxfDimStyleName) data_.dimpost = item.resval.rstring;
    if (item.restype == kDimapost) data_.dimapost = item.resval.rstring;
    for (const Reference& each : kReferences) {
      if (each.code == item.restype) data_.*each.field = AcDbObjectId().setFromOldId(item.resval.rlname[0]);
    }
    for (std::size_t i = 0; i < reals_.size(); ++i) {
      if (kRealCodes[i] == item.restype) reals_[i] = item.resval.rreal;
    }
    for (std::size_t i = 0; i < ints_.size(); ++i) {
      if (kIntCodes[i] == item.restype) ints_[i] = item.resval.rint;
    }
  }
  return filer->filerStatus();
}
