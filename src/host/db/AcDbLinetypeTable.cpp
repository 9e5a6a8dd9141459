#include "host/db/AcDbLinetypeTable.h"

#include <cmath>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/dbtext.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LTYPE, krhost)

ACHAR* AcDbLinetypeTableRecord::comments() const {
  assertReadEnabled();
  return dbtext::newText(comments_);
}

Acad::ErrorStatus AcDbLinetypeTableRecord::comments(ACHAR*& text) const {
  text = comments();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR* text) {
  assertWriteEnabled();
  comments_ = dbtext::orEmpty(text);
  return Acad::eOk;
}

int AcDbLinetypeTableRecord::numDashes() const {
  assertReadEnabled();
  return int(dashes_.size());
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count) {
  if (count < 0 || count > kMaxDashes) return Acad::eInvalidInput;
  assertWriteEnabled();
  dashes_.resize(std::size_t(count), 0.0);
  return Acad::eOk;
}

double AcDbLinetypeTableRecord::dashLengthAt(int index) const {
  assertReadEnabled();
  return index >= 0 && index < int(dashes_.size()) ? dashes_[std::size_t(index)] : 0.0;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setDashLengthAt(int index, double length) {
  if (index < 0 || index >= int(dashes_.size())) return Acad::eInvalidIndex;
  assertWriteEnabled();
  dashes_[std::size_t(index)] = length;
  return Acad::eOk;
}

double AcDbLinetypeTableRecord::patternLength() const {
  assertReadEnabled();
  if (patternLength_ > 0) return patternLength_;
  double sum = 0;
  for (const double dash : dashes_) sum += std::fabs(dash);
  return sum;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setPatternLength(double length) {
  if (!(length >= 0)) return Acad::eInvalidInput;
  assertWriteEnabled();
  patternLength_ = length;
  return Acad::eOk;
}

bool AcDbLinetypeTableRecord::isScaledToFit() const {
  assertReadEnabled();
  return scaledToFit_;
}

void AcDbLinetypeTableRecord::setIsScaledToFit(bool fit) {
  assertWriteEnabled();
  scaledToFit_ = fit;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::subErase(Adesk::Boolean erasing) {
  if (erasing && database() != nullptr) {
    const AcDbObjectId own = objectId();
    if (own == database()->byBlockLinetype() || own == database()->byLayerLinetype() ||
        own == database()->continuousLinetype()) {
      return Acad::eCannotBeErasedByCaller;
    }
  }
  return AcDbSymbolTableRecord::subErase(erasing);
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writeString(comments_.c_str());
  filer->writeDouble(patternLength_);
  filer->writeBool(scaledToFit_);
  filer->writeInt16(Adesk::Int16(dashes_.size()));
  for (const double dash : dashes_) filer->writeDouble(dash);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(filer); es != Acad::eOk) return es;
  comments_ = dbtext::readText(*filer);
  filer->readDouble(&patternLength_);
  filer->readBool(&scaledToFit_);
  Adesk::Int16 count = 0;
  filer->readInt16(&count);
  if (count < 0 || count > kMaxDashes) {
    filer->setFilerStatus(Acad::eInvalidInput);
    return Acad::eInvalidInput;
  }
  dashes_.assign(std::size_t(count), 0.0);
  for (double& dash : dashes_) filer->readDouble(&dash);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  constexpr Adesk::Int16 kAlignment = 65;
  filer->writeString(AcDb::kDxfDescription, comments_.c_str());
  filer->writeInt16(AcDb::kDxfLinetypeAlign, kAlignment);
  filer->writeInt16(AcDb::kDxfLinetypePDC, Adesk::Int16(dashes_.size()));
  filer->writeDouble(AcDb::kDxfReal, patternLength());
  for (const double dash : dashes_) {
    filer->writeDouble(AcDb::kDxfDashLength, dash);
    filer->writeInt16(AcDb::DxfCode(74), 0);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  dashes_.clear();
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    if (item.restype == AcDb::kDxfDescription) {
      comments_ = item.resval.rstring;
    } else if (item.restype == AcDb::kDxfReal) {
      patternLength_ = item.resval.rreal;
    } else if (item.restype == AcDb::kDxfDashLength && int(dashes_.size()) < kMaxDashes) {
      dashes_.push_back(item.resval.rreal);
    }
  }
  return filer->filerStatus();
}
