#include "host/db/AcDbLinetypeTable.h"

#include <cmath>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/FieldFiling.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LTYPE, krhost)

namespace {

// Groups of a dash that carries text or a shape.
constexpr AcDb::DxfCode kDashFlags = AcDb::DxfCode(74);
constexpr AcDb::DxfCode kShapeNumber = AcDb::DxfCode(75);
constexpr AcDb::DxfCode kShapeScale = AcDb::DxfCode(46);
constexpr AcDb::DxfCode kShapeX = AcDb::DxfCode(44);
constexpr AcDb::DxfCode kShapeY = AcDb::DxfCode(45);

}  // namespace

ACHAR* AcDbLinetypeTableRecord::comments() const {
  assertReadEnabled();
  return dbtext::newText(data_.description);
}

Acad::ErrorStatus AcDbLinetypeTableRecord::comments(ACHAR*& text) const {
  text = comments();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR* text) {
  assertWriteEnabled();
  data_.description = dbtext::orEmpty(text);
  return Acad::eOk;
}

int AcDbLinetypeTableRecord::numDashes() const {
  assertReadEnabled();
  return int(data_.dashes.size());
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count) {
  if (count < 0 || count > kMaxDashes) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.dashes.resize(std::size_t(count));
  return Acad::eOk;
}

double AcDbLinetypeTableRecord::dashLengthAt(int index) const {
  assertReadEnabled();
  return dashAt(index).length;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setDashLengthAt(int index, double length) {
  return setDash(index, [&](Dash& dash) { dash.length = length; });
}

const AcDbLinetypeTableRecord::Dash& AcDbLinetypeTableRecord::dashAt(int index) const {
  static const Dash kPlain;
  return index >= 0 && index < int(data_.dashes.size()) ? data_.dashes[std::size_t(index)] : kPlain;
}

template <class Set>
Acad::ErrorStatus AcDbLinetypeTableRecord::setDash(int index, Set set) {
  if (index < 0 || index >= int(data_.dashes.size())) return Acad::eInvalidIndex;
  assertWriteEnabled();
  set(data_.dashes[std::size_t(index)]);
  return Acad::eOk;
}

AcDbObjectId AcDbLinetypeTableRecord::shapeStyleAt(int index) const {
  assertReadEnabled();
  return dashAt(index).style;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeStyleAt(int index, AcDbObjectId id) {
  return setDash(index, [&](Dash& dash) { dash.style = id; });
}

int AcDbLinetypeTableRecord::shapeNumberAt(int index) const {
  assertReadEnabled();
  return (dashAt(index).flags & Dash::kShape) != 0 ? dashAt(index).shape : 0;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeNumberAt(int index, int shape) {
  return setDash(index, [&](Dash& dash) {
    dash.shape = Adesk::Int16(shape);
    dash.flags = Adesk::Int16((dash.flags & ~Dash::kText) | Dash::kShape);
    dash.text.clear();
  });
}

AcGeVector2d AcDbLinetypeTableRecord::shapeOffsetAt(int index) const {
  assertReadEnabled();
  return {dashAt(index).xOffset, dashAt(index).yOffset};
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeOffsetAt(int index, const AcGeVector2d& offset) {
  return setDash(index, [&](Dash& dash) {
    dash.xOffset = offset.x;
    dash.yOffset = offset.y;
  });
}

double AcDbLinetypeTableRecord::shapeScaleAt(int index) const {
  assertReadEnabled();
  return dashAt(index).scale;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeScaleAt(int index, double scale) {
  return setDash(index, [&](Dash& dash) { dash.scale = scale; });
}

double AcDbLinetypeTableRecord::shapeRotationAt(int index) const {
  assertReadEnabled();
  return dashAt(index).rotation;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeRotationAt(int index, double angle) {
  return setDash(index, [&](Dash& dash) { dash.rotation = angle; });
}

Acad::ErrorStatus AcDbLinetypeTableRecord::textAt(int index, const ACHAR*& text) const {
  assertReadEnabled();
  if (index < 0 || index >= int(data_.dashes.size())) return Acad::eInvalidIndex;
  text = dashAt(index).text.c_str();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setTextAt(int index, const ACHAR* text) {
  return setDash(index, [&](Dash& dash) {
    dash.text = dbtext::orEmpty(text);
    dash.flags = Adesk::Int16((dash.flags & ~Dash::kShape) | Dash::kText);
    data_.stringArea.clear();
  });
}

double AcDbLinetypeTableRecord::patternLength() const {
  assertReadEnabled();
  if (data_.patternLength > 0) return data_.patternLength;
  double sum = 0;
  for (const Dash& dash : data_.dashes) sum += std::fabs(dash.length);
  return sum;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setPatternLength(double length) {
  if (!(length >= 0)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.patternLength = length;
  return Acad::eOk;
}

bool AcDbLinetypeTableRecord::isScaledToFit() const {
  assertReadEnabled();
  return data_.scaledToFit;
}

void AcDbLinetypeTableRecord::setIsScaledToFit(bool fit) {
  assertWriteEnabled();
  data_.scaledToFit = fit;
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
  return fields::write(filer, data_);
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(filer); es != Acad::eOk) return es;
  Data read;
  if (const Acad::ErrorStatus es = fields::read(filer, read); es != Acad::eOk) return es;
  if (read.dashes.size() > std::size_t(kMaxDashes)) {
    filer->setFilerStatus(Acad::eInvalidInput);
    return Acad::eInvalidInput;
  }
  data_ = std::move(read);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeString(AcDb::kDxfDescription, data_.description.c_str());
  filer->writeInt16(AcDb::kDxfLinetypeAlign, data_.alignment);
  filer->writeInt16(AcDb::kDxfLinetypePDC, Adesk::Int16(data_.dashes.size()));
  filer->writeDouble(AcDb::kDxfReal, patternLength());
  for (const Dash& dash : data_.dashes) {
    filer->writeDouble(AcDb::kDxfDashLength, dash.length);
    filer->writeInt16(kDashFlags, dash.flags);
    if ((dash.flags & (Dash::kText | Dash::kShape)) == 0) continue;
    filer->writeInt16(kShapeNumber, (dash.flags & Dash::kShape) != 0 ? dash.shape : Adesk::Int16(0));
    filer->writeObjectId(AcDb::kDxfHardPointerId, dash.style);
    filer->writeDouble(kShapeScale, dash.scale);
    filer->writeDouble(AcDb::kDxfAngle, dash.rotation);
    filer->writeDouble(kShapeX, dash.xOffset);
    filer->writeDouble(kShapeY, dash.yOffset);
    if ((dash.flags & Dash::kText) != 0) filer->writeString(AcDb::kDxfCLShapeText, dash.text.c_str());
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  data_.dashes.clear();
  data_.stringArea.clear();
  Dash spare;
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    const ads_u_val& value = item.resval;
    Dash& dash = data_.dashes.empty() ? spare : data_.dashes.back();
    switch (int(item.restype)) {
      case AcDb::kDxfDescription:
        data_.description = value.rstring;
        break;
      case AcDb::kDxfReal:
        data_.patternLength = value.rreal;
        break;
      case AcDb::kDxfLinetypeAlign:
        data_.alignment = Adesk::UInt8(value.rint);
        break;
      case AcDb::kDxfDashLength:
        if (int(data_.dashes.size()) < kMaxDashes) data_.dashes.emplace_back().length = value.rreal;
        break;
      case kDashFlags:
        dash.flags = value.rint;
        break;
      case kShapeNumber:
        dash.shape = value.rint;
        break;
      case AcDb::kDxfHardPointerId:
        dash.style = AcDbObjectId().setFromOldId(value.rlname[0]);
        break;
      case kShapeScale:
        dash.scale = value.rreal;
        break;
      case AcDb::kDxfAngle:
        dash.rotation = value.rreal;
        break;
      case kShapeX:
        dash.xOffset = value.rreal;
        break;
      case kShapeY:
        dash.yOffset = value.rreal;
        break;
      case AcDb::kDxfCLShapeText:
        dash.text = value.rstring;
        break;
      default:
        break;
    }
  }
  return filer->filerStatus();
}
