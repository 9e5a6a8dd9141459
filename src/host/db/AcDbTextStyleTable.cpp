#include "host/db/AcDbTextStyleTable.h"

#include "host/db/AcDbDxfFiler.h"
#include "host/db/FieldFiling.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, STYLE, krhost)

namespace {

constexpr int kDxfShapeFile = 1;
constexpr int kDxfVertical = 4;

}  // namespace

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(ACHAR*& name) const {
  assertReadEnabled();
  name = dbtext::newText(data_.fileName);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* name) {
  assertWriteEnabled();
  data_.fileName = dbtext::orEmpty(name);
  data_.typeface.clear();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(ACHAR*& name) const {
  assertReadEnabled();
  name = dbtext::newText(data_.bigFontFileName);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const ACHAR* name) {
  assertWriteEnabled();
  data_.bigFontFileName = dbtext::orEmpty(name);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::font(ACHAR*& typeface, Adesk::Boolean& bold, Adesk::Boolean& italic,
                                                 int& charset, int& pitchAndFamily) const {
  assertReadEnabled();
  typeface = dbtext::newText(data_.typeface);
  bold = data_.bold;
  italic = data_.italic;
  charset = data_.charset;
  pitchAndFamily = data_.pitchAndFamily;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFont(const ACHAR* typeface, Adesk::Boolean bold, Adesk::Boolean italic,
                                                    int charset, int pitchAndFamily) {
  assertWriteEnabled();
  data_.typeface = dbtext::orEmpty(typeface);
  data_.bold = bold != 0;
  data_.italic = italic != 0;
  data_.charset = charset;
  data_.pitchAndFamily = pitchAndFamily;
  return Acad::eOk;
}

double AcDbTextStyleTableRecord::textSize() const {
  assertReadEnabled();
  return data_.textSize;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
  if (!(size >= 0)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.textSize = size;
  return Acad::eOk;
}

double AcDbTextStyleTableRecord::xScale() const {
  assertReadEnabled();
  return data_.xScale;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale) {
  constexpr double kLeast = 0.01;
  constexpr double kMost = 100;
  if (!(scale >= kLeast && scale <= kMost)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.xScale = scale;
  return Acad::eOk;
}

double AcDbTextStyleTableRecord::obliquingAngle() const {
  assertReadEnabled();
  return data_.obliquing;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double angle) {
  assertWriteEnabled();
  data_.obliquing = angle;
  return Acad::eOk;
}

double AcDbTextStyleTableRecord::priorSize() const {
  assertReadEnabled();
  return data_.priorSize;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setPriorSize(double size) {
  assertWriteEnabled();
  data_.priorSize = size;
  return Acad::eOk;
}

bool AcDbTextStyleTableRecord::isShapeFile() const {
  assertReadEnabled();
  return data_.shapeFile;
}

void AcDbTextStyleTableRecord::setIsShapeFile(bool shape) {
  assertWriteEnabled();
  data_.shapeFile = shape;
}

bool AcDbTextStyleTableRecord::isVertical() const {
  assertReadEnabled();
  return data_.vertical;
}

void AcDbTextStyleTableRecord::setIsVertical(bool vertical) {
  assertWriteEnabled();
  data_.vertical = vertical;
}

Adesk::UInt8 AcDbTextStyleTableRecord::flagBits() const {
  assertReadEnabled();
  return data_.flagBits;
}

void AcDbTextStyleTableRecord::setFlagBits(Adesk::UInt8 flags) {
  assertWriteEnabled();
  data_.flagBits = flags;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(filer); es != Acad::eOk) return es;
  return fields::write(filer, data_);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(filer); es != Acad::eOk) return es;
  return fields::read(filer, data_);
}

Adesk::Int16 AcDbTextStyleTableRecord::dxfFlags() const {
  return Adesk::Int16((data_.shapeFile ? kDxfShapeFile : 0) | (data_.vertical ? kDxfVertical : 0));
}

void AcDbTextStyleTableRecord::setDxfFlags(Adesk::Int16 flags) {
  data_.shapeFile = (flags & kDxfShapeFile) != 0;
  data_.vertical = (flags & kDxfVertical) != 0;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeDouble(AcDb::kDxfTxtSize, data_.textSize);
  filer->writeDouble(AcDb::kDxfTxtStyleXScale, data_.xScale);
  filer->writeDouble(AcDb::kDxfAngle, data_.obliquing);
  filer->writeInt16(AcDb::kDxfTxtStyleFlags, data_.flagBits);
  filer->writeDouble(AcDb::kDxfTxtStylePSize, data_.priorSize);
  filer->writeString(AcDb::kDxfTextFontFile, data_.fileName.c_str());
  return filer->writeString(AcDb::kDxfTextBigFontFile, data_.bigFontFileName.c_str());
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    const ads_u_val& value = item.resval;
    switch (item.restype) {
      case AcDb::kDxfTxtSize:
        data_.textSize = value.rreal;
        break;
      case AcDb::kDxfTxtStyleXScale:
        data_.xScale = value.rreal;
        break;
      case AcDb::kDxfAngle:
        data_.obliquing = value.rreal;
        break;
      case AcDb::kDxfTxtStyleFlags:
        data_.flagBits = Adesk::UInt8(value.rint);
        break;
      case AcDb::kDxfTxtStylePSize:
        data_.priorSize = value.rreal;
        break;
      case AcDb::kDxfTextFontFile:
        data_.fileName = value.rstring;
        break;
      case AcDb::kDxfTextBigFontFile:
        data_.bigFontFileName = value.rstring;
        break;
      default:
        break;
    }
  }
  return filer->filerStatus();
}
