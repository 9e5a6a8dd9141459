#include "host/db/AcDbTextStyleTable.h"

#include "host/db/AcDbDxfFiler.h"
#include "host/db/dbtext.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, STYLE, krhost)

namespace {

constexpr int kDxfShapeFile = 1;
constexpr int kDxfVertical = 4;
constexpr double kDegree = 3.14159265358979323846 / 180;

}  // namespace

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(ACHAR*& name) const {
  assertReadEnabled();
  name = dbtext::newText(fileName_);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* name) {
  assertWriteEnabled();
  fileName_ = dbtext::orEmpty(name);
  typeface_.clear();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(ACHAR*& name) const {
  assertReadEnabled();
  name = dbtext::newText(bigFontFileName_);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const ACHAR* name) {
  assertWriteEnabled();
  bigFontFileName_ = dbtext::orEmpty(name);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::font(ACHAR*& typeface, Adesk::Boolean& bold, Adesk::Boolean& italic,
                                                 int& charset, int& pitchAndFamily) const {
  assertReadEnabled();
  typeface = dbtext::newText(typeface_);
  bold = bold_;
  italic = italic_;
  charset = charset_;
  pitchAndFamily = pitchAndFamily_;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFont(const ACHAR* typeface, Adesk::Boolean bold, Adesk::Boolean italic,
                                                    int charset, int pitchAndFamily) {
  assertWriteEnabled();
  typeface_ = dbtext::orEmpty(typeface);
  bold_ = bold != 0;
  italic_ = italic != 0;
  charset_ = charset;
  pitchAndFamily_ = pitchAndFamily;
  return Acad::eOk;
}

double AcDbTextStyleTableRecord::textSize() const {
  assertReadEnabled();
  return textSize_;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
  if (!(size >= 0)) return Acad::eInvalidInput;
  assertWriteEnabled();
  textSize_ = size;
  return Acad::eOk;
}

double AcDbTextStyleTableRecord::xScale() const {
  assertReadEnabled();
  return xScale_;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale) {
  constexpr double kLeast = 0.01;
  constexpr double kMost = 100;
  if (!(scale >= kLeast && scale <= kMost)) return Acad::eInvalidInput;
  assertWriteEnabled();
  xScale_ = scale;
  return Acad::eOk;
}

double AcDbTextStyleTableRecord::obliquingAngle() const {
  assertReadEnabled();
  return obliquing_;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double angle) {
  assertWriteEnabled();
  obliquing_ = angle;
  return Acad::eOk;
}

double AcDbTextStyleTableRecord::priorSize() const {
  assertReadEnabled();
  return priorSize_;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setPriorSize(double size) {
  assertWriteEnabled();
  priorSize_ = size;
  return Acad::eOk;
}

bool AcDbTextStyleTableRecord::isShapeFile() const {
  assertReadEnabled();
  return shapeFile_;
}

void AcDbTextStyleTableRecord::setIsShapeFile(bool shape) {
  assertWriteEnabled();
  shapeFile_ = shape;
}

bool AcDbTextStyleTableRecord::isVertical() const {
  assertReadEnabled();
  return vertical_;
}

void AcDbTextStyleTableRecord::setIsVertical(bool vertical) {
  assertWriteEnabled();
  vertical_ = vertical;
}

Adesk::UInt8 AcDbTextStyleTableRecord::flagBits() const {
  assertReadEnabled();
  return flagBits_;
}

void AcDbTextStyleTableRecord::setFlagBits(Adesk::UInt8 flags) {
  assertWriteEnabled();
  flagBits_ = flags;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writeString(fileName_.c_str());
  filer->writeString(bigFontFileName_.c_str());
  filer->writeString(typeface_.c_str());
  filer->writeBool(bold_);
  filer->writeBool(italic_);
  filer->writeInt32(charset_);
  filer->writeInt32(pitchAndFamily_);
  filer->writeDouble(textSize_);
  filer->writeDouble(xScale_);
  filer->writeDouble(obliquing_);
  filer->writeDouble(priorSize_);
  filer->writeBool(shapeFile_);
  filer->writeBool(vertical_);
  return filer->writeUInt8(flagBits_);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(filer); es != Acad::eOk) return es;
  fileName_ = dbtext::readText(*filer);
  bigFontFileName_ = dbtext::readText(*filer);
  typeface_ = dbtext::readText(*filer);
  filer->readBool(&bold_);
  filer->readBool(&italic_);
  filer->readInt32(&charset_);
  filer->readInt32(&pitchAndFamily_);
  filer->readDouble(&textSize_);
  filer->readDouble(&xScale_);
  filer->readDouble(&obliquing_);
  filer->readDouble(&priorSize_);
  filer->readBool(&shapeFile_);
  filer->readBool(&vertical_);
  return filer->readUInt8(&flagBits_);
}

Adesk::Int16 AcDbTextStyleTableRecord::dxfFlags() const {
  return Adesk::Int16((shapeFile_ ? kDxfShapeFile : 0) | (vertical_ ? kDxfVertical : 0));
}

void AcDbTextStyleTableRecord::setDxfFlags(Adesk::Int16 flags) {
  shapeFile_ = (flags & kDxfShapeFile) != 0;
  vertical_ = (flags & kDxfVertical) != 0;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeDouble(AcDb::kDxfTxtSize, textSize_);
  filer->writeDouble(AcDb::kDxfTxtStyleXScale, xScale_);
  filer->writeDouble(AcDb::kDxfAngle, obliquing_ / kDegree);
  filer->writeInt16(AcDb::kDxfTxtStyleFlags, flagBits_);
  filer->writeDouble(AcDb::kDxfTxtStylePSize, priorSize_);
  filer->writeString(AcDb::kDxfTextFontFile, fileName_.c_str());
  return filer->writeString(AcDb::kDxfTextBigFontFile, bigFontFileName_.c_str());
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    const ads_u_val& value = item.resval;
    switch (item.restype) {
      case AcDb::kDxfTxtSize:
        textSize_ = value.rreal;
        break;
      case AcDb::kDxfTxtStyleXScale:
        xScale_ = value.rreal;
        break;
      case AcDb::kDxfAngle:
        obliquing_ = value.rreal * kDegree;
        break;
      case AcDb::kDxfTxtStyleFlags:
        flagBits_ = Adesk::UInt8(value.rint);
        break;
      case AcDb::kDxfTxtStylePSize:
        priorSize_ = value.rreal;
        break;
      case AcDb::kDxfTextFontFile:
        fileName_ = value.rstring;
        break;
      case AcDb::kDxfTextBigFontFile:
        bigFontFileName_ = value.rstring;
        break;
      default:
        break;
    }
  }
  return filer->filerStatus();
}
